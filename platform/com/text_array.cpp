#include "platform/com/text_array.h"

#include <new>

#include "platform/com/array_elements.h"

namespace hx {

std::optional<std::vector<std::wstring>> TextsOf(SAFEARRAY* array) {
    std::vector<std::wstring> texts;
    if (array == nullptr) return texts;
    const ArrayElements<BSTR> elements(array, VT_BSTR);
    if (!elements.IsValid()) return {};
    texts.reserve(elements.size());
    for (const BSTR text : elements) {
        texts.push_back(text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text)));
    }
    return texts;
}

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

}  // namespace hx
