#include "controls/profiles/SuggestedName.h"

#include <cstdint>
#include <iterator>

#include "core/locale/CFormattedText.h"

namespace hx {
namespace {

constexpr std::wstring_view kDigits = L"0123456789";

bool IsWhite(wchar_t character) {
    constexpr wchar_t kOthers[] = {0x85, 0xA0, 0x1680, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000};
    return (character >= L'\t' && character <= L'\r') || character == L' ' ||
           (character >= 0x2000 && character <= 0x200A) ||
           std::wstring_view(kOthers, std::size(kOthers)).find(character) != std::wstring_view::npos;
}

// Up to the bracket that the number goes into. Text and number are put together, not formatted: a name is no
// format, whatever "%" it holds.
std::wstring BeforeNumber(std::wstring_view name) {
    if (name.ends_with(L')')) {
        const std::wstring_view open = name.substr(0, name.size() - 1);
        const size_t last = open.find_last_not_of(kDigits);
        if (last != std::wstring_view::npos && last + 1 < open.size() && open[last] == L'(') {
            return std::wstring(open.substr(0, last + 1));
        }
    }
    return std::wstring(name) + L" (";
}

}  // namespace

std::wstring_view TrimmedName(std::wstring_view name) {
    while (!name.empty() && IsWhite(name.front())) name.remove_prefix(1);
    while (!name.empty() && IsWhite(name.back())) name.remove_suffix(1);
    return name;
}

std::wstring SuggestedName(std::wstring_view name, std::wstring_view new_profile,
                           const std::function<bool(std::wstring_view)>& is_taken) {
    name = TrimmedName(name);
    const auto formatted = [&](int32_t number) { return FormatText(L'.', new_profile, {number}); };
    // A text without a place for the number would never change.
    const bool counts = name.empty() && formatted(1) != formatted(2);
    const std::wstring before = BeforeNumber(name.empty() ? new_profile : name);
    for (int32_t number = 1;; ++number) {
        std::wstring suggested = counts ? formatted(number) : before + std::to_wstring(number) + L')';
        if (!is_taken(suggested)) return suggested;
    }
}

}  // namespace hx
