#include "controls/api/TextArray.h"

namespace hx {

std::optional<std::vector<std::wstring>> TextsOf(SAFEARRAY* array) {
    std::vector<std::wstring> texts;
    if (array == nullptr) return texts;
    VARTYPE type = VT_EMPTY;
    if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &type)) || type != VT_BSTR)
        return {};
    const ULONG count = array->rgsabound[0].cElements;
    texts.reserve(count);
    const auto* const elements = static_cast<const BSTR*>(array->pvData);
    for (ULONG i = 0; i < count; ++i) {
        const UINT length = SysStringLen(elements[i]);
        texts.emplace_back(length == 0 ? std::wstring() : std::wstring(elements[i], length));
    }
    return texts;
}

}  // namespace hx
