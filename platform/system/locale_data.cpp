#include "platform/system/locale_data.h"

#include <unicode/ucal.h>
#include <unicode/udat.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>
#include <unicode/ures.h>

#include <array>
#include <cstring>
#include <cwchar>
#include <memory>

namespace hx {
namespace {

constexpr std::string_view kNoLanguage = "C";

struct Close {
    void operator()(UResourceBundle* bundle) const { ures_close(bundle); }
    void operator()(UCalendar* calendar) const { ucal_close(calendar); }
};
template <class T>
using Owned = std::unique_ptr<T, Close>;
// To the compiler the library's calendars and date formats are one type.
struct CloseFormat {
    void operator()(UDateFormat* format) const { udat_close(format); }
};

// The library's own name for the locale, with Latin digits and the Gregorian calendar.
struct LocaleId {
    std::array<char, ULOC_FULLNAME_CAPACITY> name{};
};

std::optional<LocaleId> Identify(std::string_view tag) {
    LocaleId id;
    UErrorCode status = U_ZERO_ERROR;
    const auto capacity = static_cast<int32_t>(id.name.size());
    int32_t parsed = 0;
    // Stops at the first part that is no part of a tag, and says nothing.
    uloc_forLanguageTag(std::string(tag).c_str(), id.name.data(), capacity, &parsed, &status);
    if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING ||
        static_cast<size_t>(parsed) != tag.size()) {
        return std::nullopt;
    }
    std::array<char, ULOC_LANG_CAPACITY> language{};
    const int32_t length =
        uloc_getLanguage(id.name.data(), language.data(), static_cast<int32_t>(language.size()), &status);
    if (U_FAILURE(status) || length == 0) return std::nullopt;

    // Languages without data are served with those of the process's language, or of none.
    const Owned<UResourceBundle> bundle(ures_open(nullptr, id.name.data(), &status));
    if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING) return std::nullopt;

    status = U_ZERO_ERROR;
    uloc_setKeywordValue("numbers", "latn", id.name.data(), capacity, &status);
    uloc_setKeywordValue("calendar", "gregorian", id.name.data(), capacity, &status);
    if (U_FAILURE(status)) return std::nullopt;
    return id;
}

}  // namespace

bool IsKnownLocale(std::string_view tag) {
    return tag == kNoLanguage || Identify(tag).has_value();
}

std::optional<uint32_t> LcidOf(std::string_view tag) {
    std::optional<LocaleId> id = Identify(tag);
    if (!id) return std::nullopt;
    // The number says nothing of digits and calendars.
    if (char* const keywords = std::strchr(id->name.data(), '@')) *keywords = '\0';
    const uint32_t lcid = uloc_getLCID(id->name.data());
    return lcid == 0 ? std::nullopt : std::optional(lcid);
}

std::optional<std::string> LocaleOfLcid(uint32_t lcid) {
    std::array<char, ULOC_FULLNAME_CAPACITY> name{};
    std::array<char, ULOC_FULLNAME_CAPACITY> tag{};
    const auto capacity = static_cast<int32_t>(name.size());
    UErrorCode status = U_ZERO_ERROR;
    uloc_getLocaleForLCID(lcid, name.data(), capacity, &status);
    if (U_FAILURE(status) || name.front() == '\0') return std::nullopt;
    uloc_toLanguageTag(name.data(), tag.data(), capacity, true, &status);
    if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING || !IsKnownLocale(tag.data())) {
        return std::nullopt;
    }
    return tag.data();
}

std::optional<wchar_t> DecimalSeparatorOf(std::string_view tag) {
    if (tag == kNoLanguage) return L'.';
    const std::optional<LocaleId> id = Identify(tag);
    if (!id) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    UNumberFormat* const format = unum_open(UNUM_DECIMAL, nullptr, 0, id->name.data(), nullptr, &status);
    if (U_FAILURE(status)) return std::nullopt;
    UChar symbol[2];
    const int32_t length = unum_getSymbol(format, UNUM_DECIMAL_SEPARATOR_SYMBOL, symbol, 2, &status);
    unum_close(format);
    if (U_FAILURE(status) || length != 1 || U16_IS_SURROGATE(symbol[0])) return std::nullopt;
    return static_cast<wchar_t>(symbol[0]);
}

std::optional<std::wstring> ShortDate(std::string_view tag, const GregorianDate& date) {
    UErrorCode status = U_ZERO_ERROR;
    static constexpr UChar kUtc[] = u"UTC";
    const Owned<UCalendar> calendar(ucal_open(kUtc, -1, "en_US", UCAL_GREGORIAN, &status));
    if (U_FAILURE(status)) return std::nullopt;
    // Also before that calendar was in use.
    constexpr UDate kAlways = -1e17;
    ucal_setGregorianChange(calendar.get(), kAlways, &status);
    ucal_setAttribute(calendar.get(), UCAL_LENIENT, 0);
    ucal_clear(calendar.get());
    ucal_setDate(calendar.get(), date.year, date.month - 1, date.day, &status);
    const UDate moment = ucal_getMillis(calendar.get(), &status);
    if (U_FAILURE(status) || date.year < 1) return std::nullopt;
    if (tag == kNoLanguage) {
        wchar_t text[40];
        const int length =
            std::swprintf(text, std::size(text), L"%04d-%02d-%02d", date.year, date.month, date.day);
        return std::wstring(text, static_cast<size_t>(length));
    }
    const std::optional<LocaleId> id = Identify(tag);
    if (!id) return std::nullopt;
    const std::unique_ptr<UDateFormat, CloseFormat> format(
        udat_open(UDAT_NONE, UDAT_SHORT, id->name.data(), kUtc, -1, nullptr, 0, &status));
    if (U_FAILURE(status)) return std::nullopt;
    udat_setCalendar(format.get(), calendar.get());
    std::array<UChar, 128> text;
    const int32_t length =
        udat_format(format.get(), moment, text.data(), static_cast<int32_t>(text.size()), nullptr, &status);
    if (U_FAILURE(status)) return std::nullopt;
    // Short dates hold no characters beyond the basic plane.
    return std::wstring(text.data(), text.data() + length);
}

}  // namespace hx
