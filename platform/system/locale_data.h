// What languages and regions ask for, by language tag ("de-DE"), whatever the machine has installed. Any
// thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/api.h"

namespace hx {

struct LocaleData {
    wchar_t decimal_separator;       // of numbers in Latin digits
    std::wstring short_date_format;  // ICU pattern, e.g. "dd.MM.yy"
};

// Nothing for a tag that is malformed or names no known language. "C" is known: "." and ISO dates.
// Throws std::bad_alloc.
HX_PLATFORM_API std::optional<LocaleData> FindLocale(std::string_view tag);

}  // namespace hx
