#include "platform/com/variant.h"

#include <cstring>
#include <new>

#include "platform/com/dispatch.h"
#include "platform/com/safearray.h"
#include "platform/com/safearray_elements.h"

namespace {

constexpr VARTYPE modifiers = VT_ARRAY | VT_BYREF;

bool IsPlain(VARTYPE type) {
    switch (type) {
        case VT_EMPTY:
        case VT_NULL:
        case VT_I1:
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_INT:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_UI8:
        case VT_UINT:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
        case VT_ERROR:
        case VT_BOOL:
        case VT_BSTR:
        case VT_UNKNOWN:
        case VT_DISPATCH:
            return true;
        default:
            return false;
    }
}

bool IsKnown(VARTYPE type) {
    const auto base = static_cast<VARTYPE>(type & ~modifiers);
    if ((type & modifiers) == 0) return IsPlain(base);
    return base == VT_VARIANT || (IsPlain(base) && base != VT_EMPTY && base != VT_NULL);
}

// `*copy` shares nothing with `source` that either would free twice; untouched on failure.
HRESULT Duplicate(const VARIANT& source, VARIANT& copy) {
    if (!IsKnown(source.vt)) return DISP_E_BADVARTYPE;
    VARIANT fresh = source;
    if (source.vt & VT_BYREF) {
        // What it points at belongs to somebody else and is shared.
    } else if (source.vt & VT_ARRAY) {
        const HRESULT result = SafeArrayCopy(source.parray, &fresh.parray);
        if (FAILED(result)) return result;
    } else if (source.vt == VT_BSTR) {
        if (source.bstrVal) {
            fresh.bstrVal = SysAllocStringLen(source.bstrVal, SysStringLen(source.bstrVal));
            if (!fresh.bstrVal) return E_OUTOFMEMORY;
        }
    } else if (source.vt == VT_UNKNOWN) {
        if (source.punkVal) source.punkVal->AddRef();
    } else if (source.vt == VT_DISPATCH) {
        if (source.pdispVal) source.pdispVal->AddRef();
    }
    copy = fresh;
    return S_OK;
}

}  // namespace

void VariantInit(VARIANT* variant) {
    *variant = VARIANT{};
}

HRESULT VariantClear(VARIANT* variant) {
    if (!variant) return E_INVALIDARG;
    if (!IsKnown(variant->vt)) return DISP_E_BADVARTYPE;
    if ((variant->vt & VT_ARRAY) && !(variant->vt & VT_BYREF) && variant->parray && variant->parray->cLocks) {
        return DISP_E_ARRAYISLOCKED;
    }
    // Empty before anything is freed: an object's destructor may look at it again.
    const VARIANT old = *variant;
    VariantInit(variant);
    if (old.vt & VT_BYREF) return S_OK;
    if (old.vt & VT_ARRAY) return SafeArrayDestroy(old.parray);
    if (old.vt == VT_BSTR) SysFreeString(old.bstrVal);
    if (old.vt == VT_UNKNOWN && old.punkVal) old.punkVal->Release();
    if (old.vt == VT_DISPATCH && old.pdispVal) old.pdispVal->Release();
    return S_OK;
}

HRESULT VariantCopy(VARIANT* target, const VARIANT* source) {
    if (!target || !source) return E_INVALIDARG;
    // The copy first: the source may be the target, or live inside what the target holds.
    VARIANT copy;
    HRESULT result = Duplicate(*source, copy);
    if (FAILED(result)) return result;
    result = VariantClear(target);
    if (FAILED(result)) {
        VariantClear(&copy);
        return result;
    }
    *target = copy;
    return S_OK;
}

HRESULT VariantCopyInd(VARIANT* target, const VARIANT* source) {
    if (!target || !source) return E_INVALIDARG;
    if (!(source->vt & VT_BYREF)) return VariantCopy(target, source);
    if (!IsKnown(source->vt)) return DISP_E_BADVARTYPE;
    if (!source->byref) return E_INVALIDARG;
    if (source->vt == (VT_BYREF | VT_VARIANT)) {
        const VARIANT& inner = *source->pvarVal;
        return inner.vt == (VT_BYREF | VT_VARIANT) ? E_INVALIDARG : VariantCopyInd(target, &inner);
    }
    // Not owned: copied as a value, never cleared.
    VARIANT seen{};
    seen.vt = static_cast<VARTYPE>(source->vt & ~VT_BYREF);
    const size_t size = seen.vt & VT_ARRAY ? sizeof seen.parray : hx::ElementSize(seen.vt);
    std::memcpy(&seen.llVal, source->byref, size);
    return VariantCopy(target, &seen);
}

namespace hx {

Variant::Variant(int32_t value) noexcept : Variant() {
    m_value.vt = VT_I4;
    m_value.lVal = value;
}

Variant::Variant(double value) noexcept : Variant() {
    m_value.vt = VT_R8;
    m_value.dblVal = value;
}

Variant::Variant(std::wstring_view text) : Variant() {
    m_value.bstrVal = Bstr(text).detach();
    m_value.vt = VT_BSTR;
}

Variant::Variant(IUnknown* object) noexcept : Variant() {
    m_value.vt = VT_UNKNOWN;
    m_value.punkVal = object;
    if (object) object->AddRef();
}

Variant& Variant::operator=(Variant&& other) noexcept {
    if (this != &other) attach(other.detach());
    return *this;
}

VARIANT* Variant::put() noexcept {
    VariantClear(&m_value);
    VariantInit(&m_value);
    return &m_value;
}

void Variant::attach(const VARIANT& value) noexcept {
    *put() = value;
}

VARIANT Variant::detach() noexcept {
    const VARIANT value = m_value;
    VariantInit(&m_value);
    return value;
}

HRESULT Variant::copy_to(VARIANT* out) const noexcept {
    if (!out) return E_POINTER;
    VariantInit(out);
    return VariantCopy(out, &m_value);
}

}  // namespace hx
