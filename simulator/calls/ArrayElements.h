// The elements of arrays that cross interfaces: read in place, and new arrays of texts. On the thread of the
// call.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/com/safearray.h"

namespace hx::simulator {

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

// An array of VT_BSTR. Throws std::bad_alloc.
SafeArray TextArray(const std::vector<std::wstring>& texts);

}  // namespace hx::simulator
