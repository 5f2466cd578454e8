// The elements of an array that crosses an interface, read in place:
//     const ArrayElements<BSTR> names(array, VT_BSTR);
//     if (!names.IsValid()) return E_INVALIDARG;
// As the array, usable by one thread at a time.
#pragma once

#include <cstddef>
#include <span>

#include "platform/com/safearray.h"

namespace hx {

// Those of an array of one dimension, wherever it begins, with elements of that type; of any other array
// none, and it is then not valid.
template <class T>
class ArrayElements {
public:
    ArrayElements(SAFEARRAY* array, VARTYPE type) : m_array(array) {
        VARTYPE found = VT_EMPTY;
        LONG first = 0;
        LONG last = -1;
        if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &found)) || found != type)
            return;
        if (SafeArrayGetElemsize(array) != sizeof(T) || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
            FAILED(SafeArrayGetUBound(array, 1, &last)))
            return;
        void* data = nullptr;
        if (FAILED(SafeArrayAccessData(array, &data))) return;
        m_is_valid = true;
        m_elements = {static_cast<T*>(data), static_cast<size_t>(int64_t{last} - first + 1)};
    }
    ArrayElements(const ArrayElements&) = delete;
    ArrayElements& operator=(const ArrayElements&) = delete;
    ~ArrayElements() {
        if (m_is_valid) SafeArrayUnaccessData(m_array);
    }

    bool IsValid() const { return m_is_valid; }
    size_t size() const { return m_elements.size(); }
    auto begin() const { return m_elements.begin(); }
    auto end() const { return m_elements.end(); }
    T operator[](size_t index) const { return m_elements[index]; }

private:
    SAFEARRAY* const m_array;
    bool m_is_valid = false;
    std::span<T> m_elements;
};

}  // namespace hx
