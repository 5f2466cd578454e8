// Numbers as text by the decimal separator of a locale and nothing else of it: no digit grouping, never the
// user's settings. Made for a language tag ("de-DE") or for "C"; readable on any thread.
#pragma once

#include <locale>
#include <string>
#include <string_view>

#include "core/locale/CFormattedText.h"

namespace hx {

class MLocale {
public:
    // Stream punctuation: a decimal separator, no grouping.
    class DecimalSeparatorOnly : public std::numpunct<wchar_t> {
    public:
        explicit DecimalSeparatorOnly(wchar_t separator) : m_separator(separator) {}

    protected:
        wchar_t do_decimal_point() const override { return m_separator; }
        std::string do_grouping() const override { return {}; }

    private:
        wchar_t m_separator;
    };

    // Throws an MException: BadCppLocale ("name", "errorMessage") for a name that is no known locale,
    // BadCLocale
    // ("name") for a locale whose numbers are not known.
    explicit MLocale(std::string_view name);

    // The locale of files and the registry, for the whole program.
    static const MLocale& C();

    const std::string& GetName() const { return m_name; }
    wchar_t GetDecimalSeparator() const { return m_separator; }
    // For streams; otherwise it is the classic one.
    const std::locale& GetStreamLocale() const { return m_stream_locale; }

    // printf's conversions, as FormatText tells.
    template <class... Arguments>
    std::wstring Format(std::wstring_view format, const Arguments&... arguments) const {
        return FormatText(m_separator, format, {CFormatArgument(arguments)...});
    }

    // With so many decimals, none if negative. With `trim_zeros` zeros at the end of the decimals are left
    // out, and the separator with the last of them.
    std::wstring ToString(double value, int decimals, bool trim_zeros) const;

    // True if the text is a number, with white space around it at most; one out of range is taken as infinity
    // or nearly 0. `value` is unchanged on failure.
    bool ToDouble(std::wstring_view text, double& value) const;

private:
    std::string m_name;
    wchar_t m_separator = L'.';
    std::locale m_stream_locale;
};

}  // namespace hx
