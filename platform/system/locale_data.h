// What languages and regions ask for, by language tag ("de-DE"), whatever the machine has installed or the
// user has set. "C" stands for no language. Any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/api.h"

namespace hx {

// False for a tag that is malformed, and for one of a language that there are no data for.
HX_PLATFORM_API bool IsKnownLocale(std::string_view tag);

// The system's number of a locale (an LCID), as components tell each other; and the tag of the number.
// Nothing for an unknown locale, "C" included, and for numbers that mean none.
HX_PLATFORM_API std::optional<uint32_t> LcidOf(std::string_view tag);
HX_PLATFORM_API std::optional<std::string> LocaleOfLcid(uint32_t lcid);

// Of numbers in Latin digits. Nothing for an unknown locale, or one whose separator is no single character.
HX_PLATFORM_API std::optional<wchar_t> DecimalSeparatorOf(std::string_view tag);

struct GregorianDate {
    int32_t year;
    int32_t month;  // 1 to 12
    int32_t day;    // 1 to 31
};

// A date of the Gregorian calendar in the locale's short form; of "C" it is "2024-01-31". Nothing for an
// unknown locale and for a date that is not in the calendar. Throws std::bad_alloc.
HX_PLATFORM_API std::optional<std::wstring> ShortDate(std::string_view tag, const GregorianDate& date);

}  // namespace hx
