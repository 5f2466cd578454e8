#include "platform/ui/integer_range_text.h"

namespace hx::ui {
namespace {

constexpr uint32_t kIntegerRange = 0xF112;
constexpr wchar_t kEnglish[] = L"Enter an integer between %1 and %2.";

void Put(std::wstring& text, const wchar_t* mark, int32_t number) {
    const size_t at = text.find(mark);
    if (at != std::wstring::npos) text.replace(at, 2, std::to_wstring(number));
}

}  // namespace

std::wstring IntegerRangeText(const ResourceModule& module, int32_t minimum, int32_t maximum) {
    const std::wstring* const pattern = module.String(kIntegerRange);
    std::wstring text = pattern ? *pattern : kEnglish;
    Put(text, L"%1", minimum);
    Put(text, L"%2", maximum);
    return text;
}

}  // namespace hx::ui
