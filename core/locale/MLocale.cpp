#include "core/locale/MLocale.h"

#include <algorithm>

#include "core/errors/MErrorLocation.h"
#include "core/filer/CNumberText.h"
#include "platform/system/locale_data.h"

namespace hx {
namespace {

[[noreturn]] void Refuse(const MLocale* locale, int32_t line, std::wstring_view error_name,
                         std::string_view name, std::wstring_view message) {
    static MErrorLocation location("MLocale", "MLocale");
    location.Set(locale, line);
    MError error = MakeError(location, error_name);
    if (!message.empty()) error.AddParameter(L"errorMessage", message);
    const auto widen = [](char byte) { return static_cast<wchar_t>(static_cast<unsigned char>(byte)); };
    std::wstring wide_name(name.size(), L'\0');
    std::ranges::transform(name, wide_name.begin(), widen);
    error.AddParameter(L"name", wide_name);
    Throw(location, error);
}

}  // namespace

MLocale::MLocale(std::string_view name) : m_name(name), m_stream_locale(std::locale::classic()) {
    if (!IsKnownLocale(name)) Refuse(this, 24, L"BadCppLocale", name, L"bad locale name");
    const std::optional<wchar_t> separator = DecimalSeparatorOf(name);
    if (!separator) Refuse(this, 31, L"BadCLocale", name, {});
    m_separator = *separator;
    m_stream_locale = std::locale(std::locale::classic(), new DecimalSeparatorOnly(m_separator));
}

const MLocale& MLocale::C() {
    static const MLocale locale("C");
    return locale;
}

std::wstring MLocale::ToString(double value, int decimals, bool trim_zeros) const {
    std::wstring text = Format(L"%.*lf", std::max(decimals, 0), value);
    if (!trim_zeros || text.find(m_separator) == std::wstring::npos) return text;
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.back() == m_separator) text.pop_back();
    return text;
}

bool MLocale::ToDouble(std::wstring_view text, double& value) const {
    if (m_separator == L'.') return ParseNumber(text, value);
    std::wstring plain(text);
    for (wchar_t& character : plain) {
        if (character == L'.') {
            character = L'?';  // no part of a number here
        } else if (character == m_separator) {
            character = L'.';
        }
    }
    return ParseNumber(plain, value);
}

}  // namespace hx
