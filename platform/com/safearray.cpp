#include "platform/com/safearray.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include "platform/com/safearray_elements.h"

namespace {

// In front of every array, its last word the element type, as FADF_HAVEVARTYPE announces.
struct Hidden {
    uint32_t unused[3];
    uint32_t type;
};

Hidden* HiddenOf(SAFEARRAY* array) {
    return reinterpret_cast<Hidden*>(array) - 1;
}
VARTYPE TypeOf(SAFEARRAY* array) {
    return static_cast<VARTYPE>(HiddenOf(array)->type);
}

// Through a pointer of its own, since the declared array has one element only.
SAFEARRAYBOUND* Bounds(SAFEARRAY* array) {
    return array->rgsabound;
}
const SAFEARRAYBOUND& Bound(SAFEARRAY* array, UINT dimension) {
    return Bounds(array)[array->cDims - dimension];
}

size_t CountElements(SAFEARRAY* array) {
    size_t count = 1;
    for (UINT i = 0; i < array->cDims; ++i) count *= Bounds(array)[i].cElements;
    return count;
}

BYTE* ElementAt(SAFEARRAY* array, size_t index) {
    return static_cast<BYTE*>(array->pvData) + index * array->cbElements;
}

// False if the sizes cannot be multiplied or an upper bound does not fit its type.
bool MeasureData(UINT dimensions, const SAFEARRAYBOUND* bounds, ULONG element_size, size_t& bytes) {
    // A dimension of none makes the product zero, but must not hide that the others overflow each other.
    bool is_empty = false;
    bytes = element_size;
    for (UINT i = 0; i < dimensions; ++i) {
        const int64_t upper = int64_t{bounds[i].lLbound} + bounds[i].cElements - 1;
        if (upper > std::numeric_limits<LONG>::max() || upper < std::numeric_limits<LONG>::min())
            return false;
        if (bounds[i].cElements == 0) {
            is_empty = true;
        } else if (bytes > std::numeric_limits<ptrdiff_t>::max() / size_t{bounds[i].cElements}) {
            return false;
        } else {
            bytes *= bounds[i].cElements;
        }
    }
    if (is_empty) bytes = 0;
    return true;
}

void Free(SAFEARRAY* array) {
    std::free(array->pvData);
    std::free(HiddenOf(array));
}

HRESULT FindElement(SAFEARRAY* array, const LONG* indices, void*& element) {
    size_t offset = 0;
    size_t step = 1;
    for (UINT dimension = 1; dimension <= array->cDims; ++dimension) {
        const SAFEARRAYBOUND& bound = Bound(array, dimension);
        const int64_t index = int64_t{indices[dimension - 1]} - bound.lLbound;
        if (index < 0 || index >= int64_t{bound.cElements}) return DISP_E_BADINDEX;
        offset += static_cast<size_t>(index) * step;
        step *= bound.cElements;
    }
    element = ElementAt(array, offset);
    return S_OK;
}

}  // namespace

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
    const ULONG element_size = hx::ElementSize(type);
    size_t bytes = 0;
    if (element_size == 0 || dimensions == 0 || dimensions > std::numeric_limits<USHORT>::max() || !bounds ||
        !MeasureData(dimensions, bounds, element_size, bytes)) {
        return nullptr;
    }
    const size_t descriptor = sizeof(Hidden) + sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
    auto* hidden = static_cast<Hidden*>(std::calloc(1, descriptor));
    if (!hidden) return nullptr;
    hidden->type = type;
    auto* array = reinterpret_cast<SAFEARRAY*>(hidden + 1);
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = static_cast<USHORT>(FADF_HAVEVARTYPE | hx::ElementFeature(type));
    array->cbElements = element_size;
    std::reverse_copy(bounds, bounds + dimensions, Bounds(array));
    array->pvData = std::calloc(1, std::max<size_t>(bytes, 1));
    if (!array->pvData) {
        Free(array);
        return nullptr;
    }
    return array;
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lower_bound, ULONG elements) {
    SAFEARRAYBOUND bound{elements, lower_bound};
    return SafeArrayCreate(type, 1, &bound);
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) {
    if (!array) return S_OK;
    if (array->cLocks != 0) return DISP_E_ARRAYISLOCKED;
    const VARTYPE type = TypeOf(array);
    if (hx::ElementFeature(type) != 0) {
        const size_t count = CountElements(array);
        for (size_t i = 0; i < count; ++i) hx::ClearElement(type, ElementAt(array, i));
    }
    Free(array);
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy) {
    if (!copy) return E_INVALIDARG;
    *copy = nullptr;
    if (!array) return S_OK;
    const VARTYPE type = TypeOf(array);
    // Created with the bounds as they lie, then put the right way round: no second array of them is needed.
    hx::SafeArray fresh(SafeArrayCreate(type, array->cDims, Bounds(array)));
    if (!fresh) return E_OUTOFMEMORY;
    std::copy_n(Bounds(array), array->cDims, Bounds(fresh.get()));
    const size_t count = CountElements(array);
    for (size_t i = 0; i < count; ++i) {
        const HRESULT result = hx::CopyElement(type, ElementAt(fresh.get(), i), ElementAt(array, i));
        if (FAILED(result)) return result;
    }
    *copy = fresh.detach();
    return S_OK;
}

UINT SafeArrayGetDim(SAFEARRAY* array) {
    return array ? array->cDims : 0;
}

UINT SafeArrayGetElemsize(SAFEARRAY* array) {
    return array ? array->cbElements : 0;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    if (!array || !bound) return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims) return DISP_E_BADINDEX;
    *bound = Bound(array, dimension).lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    const HRESULT result = SafeArrayGetLBound(array, dimension, bound);
    if (FAILED(result)) return result;
    *bound = static_cast<LONG>(int64_t{*bound} + Bound(array, dimension).cElements - 1);
    return S_OK;
}

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type) {
    if (!array || !type) return E_INVALIDARG;
    *type = TypeOf(array);
    return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* element) {
    if (!array || !indices || !element) return E_INVALIDARG;
    void* found = nullptr;
    const HRESULT result = FindElement(array, indices, found);
    return FAILED(result) ? result : hx::CopyElement(TypeOf(array), element, found);
}

HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* element) {
    if (!array || !indices) return E_INVALIDARG;
    const VARTYPE type = TypeOf(array);
    // Strings and objects are handed over as the pointers that they are, and null is one.
    const bool is_pointer = type == VT_BSTR || type == VT_UNKNOWN || type == VT_DISPATCH;
    if (!element && !is_pointer) return E_INVALIDARG;
    void* found = nullptr;
    HRESULT result = FindElement(array, indices, found);
    if (FAILED(result)) return result;
    // The new one first: it may be part of the old one, or the memory for it may be missing.
    std::array<BYTE, sizeof(VARIANT)> fresh;
    result = hx::CopyElement(type, fresh.data(), is_pointer ? static_cast<const void*>(&element) : element);
    if (FAILED(result)) return result;
    std::array<BYTE, sizeof(VARIANT)> old;
    std::copy_n(static_cast<BYTE*>(found), array->cbElements, old.data());
    std::copy_n(fresh.data(), array->cbElements, static_cast<BYTE*>(found));
    hx::ClearElement(type, old.data());
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data) {
    if (!data) return E_INVALIDARG;
    *data = nullptr;
    if (!array) return E_INVALIDARG;
    std::atomic_ref(array->cLocks).fetch_add(1);
    *data = array->pvData;
    return S_OK;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array) {
    if (!array) return E_INVALIDARG;
    std::atomic_ref locks(array->cLocks);
    ULONG held = locks.load();
    do {
        if (held == 0) return E_UNEXPECTED;
    } while (!locks.compare_exchange_weak(held, held - 1));
    return S_OK;
}
