#include "platform/system/one_line.h"

#include <unicode/uchar.h>

namespace hx {
namespace {

bool IsBlank(UChar32 code) {
    return u_isUWhiteSpace(code) || u_charType(code) == U_CONTROL_CHAR;
}

}  // namespace

std::wstring OneLine(std::wstring_view text) {
    std::wstring line;
    line.reserve(text.size());
    for (const wchar_t character : text) {
        const auto code = static_cast<UChar32>(character);
        if (IsBlank(code)) {
            if (!line.empty() && line.back() != L' ') line += L' ';
        } else if (u_charType(code) != U_FORMAT_CHAR) {
            line += character;
        }
    }
    if (line.ends_with(L' ')) line.pop_back();
    return line;
}

}  // namespace hx
