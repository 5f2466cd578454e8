// Dates as the user is used to see them, whatever language a program speaks. Any thread, as environment.h has
// it.
#pragma once

#include <optional>
#include <string>

#include "platform/api.h"
#include "platform/system/locale_data.h"

namespace hx {

// The tag of the locale that the user has set for dates, "C" for none: the first of LC_ALL, LC_TIME and LANG
// that says anything. Where nothing is known of the region its language counts alone, and "C" for a language
// of which nothing is known. Throws std::bad_alloc.
HX_PLATFORM_API std::string UserDateLocale();

// In its short form. Nothing for a day that is not in the calendar, and for years before 100 and after 9999.
// Throws std::bad_alloc.
HX_PLATFORM_API std::optional<std::wstring> FormatShortDate(const GregorianDate& date);

}  // namespace hx
