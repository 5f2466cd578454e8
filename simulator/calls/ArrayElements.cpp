#include "simulator/calls/ArrayElements.h"

#include <new>

namespace hx::simulator {

SafeArray TextArray(const std::vector<std::wstring>& texts) {
    SafeArray array(SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size())));
    if (!array) throw std::bad_alloc();
    LONG index = 0;
    for (const std::wstring& text : texts) {
        // The array takes a copy.
        const HRESULT put = SafeArrayPutElement(array.get(), &index, Bstr(text).get());
        if (FAILED(put)) throw std::bad_alloc();
        ++index;
    }
    return array;
}

}  // namespace hx::simulator
