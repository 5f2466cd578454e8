#include "platform/system/case_fold.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace hx {

wchar_t FoldCase(wchar_t character) {
    if (character < 128) {
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a')
                                                      : character;
    }
    return static_cast<wchar_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

std::wstring FoldCase(std::wstring_view text) {
    std::wstring folded(text);
    for (wchar_t& character : folded) character = FoldCase(character);
    return folded;
}

bool EqualsWithoutCase(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && CompareWithoutCase(a, b) == 0;
}

int CompareWithoutCase(std::wstring_view a, std::wstring_view b) {
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) {
        const wchar_t x = FoldCase(a[i]);
        const wchar_t y = FoldCase(b[i]);
        if (x != y) return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

}  // namespace hx
