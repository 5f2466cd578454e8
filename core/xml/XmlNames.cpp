#include "core/xml/XmlNames.h"

#include <algorithm>
#include <cwctype>

#include "core/xml/XmlChars.h"

namespace hx {

bool SameName(std::wstring_view left, std::wstring_view right, bool ignore_case) {
    if (!ignore_case) return left == right;
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](wchar_t a, wchar_t b) {
        return std::towlower(static_cast<wint_t>(a)) == std::towlower(static_cast<wint_t>(b));
    });
}

bool MatchesRequest(std::wstring_view tag, std::wstring_view request, bool ignore_case) {
    if (request.size() > tag.size()) {
        if (std::wstring_view(L" =/[]").find(request[tag.size()]) == std::wstring_view::npos) return false;
        request = request.substr(0, tag.size());
    }
    return SameName(tag, request, ignore_case);
}

bool IsWritableName(std::wstring_view name) {
    return !name.empty() && (IsTagStart(name[0]) || IsTransformCell(name)) &&
           std::none_of(name.begin(), name.end(), IsNotWritable);
}

bool IsWritableAttribute(std::wstring_view name) {
    return !name.empty() &&
           std::none_of(name.begin(), name.end(), [](wchar_t c) { return IsNotWritable(c) || c == L' '; });
}

}  // namespace hx
