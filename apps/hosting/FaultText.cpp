#include "apps/hosting/FaultText.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "hxapi/HXApiErrors.h"

namespace hosting {
namespace {

template <class T>
bool Parse(std::string_view text, T& value, int base = 10) {
    const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc() && behind == text.data() + text.size();
}

}  // namespace

bool ParseResult(std::string_view text, HRESULT& result) {
    const auto* const named = std::ranges::find(kHXApiErrors, text, &HXApiError::name);
    if (named != std::end(kHXApiErrors)) result = named->code;
    if (named != std::end(kHXApiErrors) || hx::HresultOfName(text, result)) return true;
    if (!text.starts_with("0x") && !text.starts_with("0X")) return Parse(text, result);
    uint32_t bits = 0;
    if (!Parse(text.substr(2), bits, 16)) return false;
    result = static_cast<HRESULT>(bits);
    return true;
}

std::optional<FaultText> ParseFault(const std::string& text) {
    const std::string_view whole = text;
    const size_t equals = whole.find('=');
    const size_t colon = std::min(whole.find(':', std::min(equals, whole.size())), whole.size());
    FaultText fault{std::string(whole.substr(0, equals)), E_FAIL, 1};
    if (equals == std::string_view::npos || equals == 0 || whole.find(':') < equals ||
        !ParseResult(whole.substr(equals + 1, colon - equals - 1), fault.result)) {
        return std::nullopt;
    }
    if (colon == whole.size()) return fault;
    const std::string_view times = whole.substr(colon + 1);
    if (times == "*") {
        fault.times = -1;
    } else if (!Parse(times, fault.times) || fault.times <= 0) {
        return std::nullopt;
    }
    return fault;
}

}  // namespace hosting
