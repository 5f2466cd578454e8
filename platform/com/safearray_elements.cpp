#include "platform/com/safearray_elements.h"

#include <cstring>

#include "platform/com/dispatch.h"
#include "platform/com/safearray.h"

namespace hx {
namespace {

// Elements are read and written as bytes: an array's data are a plain block without declared types.
template <class T>
T Load(const void* element) {
    T value;
    std::memcpy(&value, element, sizeof value);
    return value;
}

template <class T>
void Store(void* element, const T& value) {
    std::memcpy(element, &value, sizeof value);
}

template <class I>
void CopyObject(void* target, const void* source) {
    I* object = Load<I*>(source);
    if (object) object->AddRef();
    Store(target, object);
}

template <class I>
void ReleaseObject(void* element) {
    if (I* object = Load<I*>(element)) object->Release();
}

HRESULT CopyString(void* target, const void* source) {
    BSTR string = Load<BSTR>(source);
    BSTR copy = string ? SysAllocStringLen(string, SysStringLen(string)) : nullptr;
    Store(target, copy);
    return string && !copy ? E_OUTOFMEMORY : S_OK;
}

HRESULT CopyVariant(void* target, const void* source) {
    const auto value = Load<VARIANT>(source);
    VARIANT copy{};
    const HRESULT result = VariantCopy(&copy, &value);
    Store(target, copy);
    return result;
}

}  // namespace

ULONG ElementSize(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        case VT_BSTR:
        case VT_UNKNOWN:
        case VT_DISPATCH:
            return sizeof(void*);
        case VT_VARIANT:
            return sizeof(VARIANT);
        default:
            return 0;
    }
}

USHORT ElementFeature(VARTYPE type) {
    switch (type) {
        case VT_BSTR:
            return FADF_BSTR;
        case VT_UNKNOWN:
            return FADF_UNKNOWN;
        case VT_DISPATCH:
            return FADF_DISPATCH;
        case VT_VARIANT:
            return FADF_VARIANT;
        default:
            return 0;
    }
}

HRESULT CopyElement(VARTYPE type, void* target, const void* source) {
    switch (type) {
        case VT_BSTR:
            return CopyString(target, source);
        case VT_VARIANT:
            return CopyVariant(target, source);
        case VT_UNKNOWN:
            CopyObject<IUnknown>(target, source);
            return S_OK;
        case VT_DISPATCH:
            CopyObject<IDispatch>(target, source);
            return S_OK;
        default:
            std::memcpy(target, source, ElementSize(type));
            return S_OK;
    }
}

void ClearElement(VARTYPE type, void* element) {
    if (type == VT_BSTR) SysFreeString(Load<BSTR>(element));
    if (type == VT_UNKNOWN) ReleaseObject<IUnknown>(element);
    if (type == VT_DISPATCH) ReleaseObject<IDispatch>(element);
    if (type == VT_VARIANT) {
        auto value = Load<VARIANT>(element);
        VariantClear(&value);
    }
    std::memset(element, 0, ElementSize(type));
}

}  // namespace hx
