#include "platform/system/user_date.h"

#include <algorithm>

#include "platform/system/environment.h"

namespace hx {
namespace {

constexpr char kNoLocale[] = "C";
constexpr int32_t kFirstYear = 100;
constexpr int32_t kLastYear = 9999;

// "de-DE" of "de_DE.UTF-8@euro".
std::string TagOf(std::string value) {
    value.resize(std::min(value.find_first_of(".@"), value.size()));
    std::ranges::replace(value, '_', '-');
    return value;
}

}  // namespace

std::string UserDateLocale() {
    for (const char* const name : {"LC_ALL", "LC_TIME", "LANG"}) {
        const std::optional<std::string> value = EnvironmentValue(name);
        if (!value || value->empty()) continue;
        std::string tag = TagOf(*value);
        if (IsKnownLocale(tag)) return tag;
        tag.resize(std::min(tag.find('-'), tag.size()));
        return IsKnownLocale(tag) ? tag : kNoLocale;
    }
    return kNoLocale;
}

std::optional<std::wstring> FormatShortDate(const GregorianDate& date) {
    if (date.year < kFirstYear || date.year > kLastYear) return std::nullopt;
    return ShortDate(UserDateLocale(), date);
}

}  // namespace hx
