// Text formatted by a printf format, with typed arguments and a given decimal separator: the same on every
// system, whatever the C library takes "%s" and "%lu" to be. Used by MLocale and the dialogs. Any thread.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace hx {

// A value of any type that a format can show.
class CFormatArgument {
public:
    template <class T>
    requires std::is_arithmetic_v<T> CFormatArgument(T value) : m_value(Widened<T>(value)) {}
    CFormatArgument(std::wstring_view text) : m_value(text) {}
    CFormatArgument(const std::wstring& text) : m_value(std::wstring_view(text)) {}
    CFormatArgument(const wchar_t* text) : m_value(std::wstring_view(text)) {}

    using Value = std::variant<int64_t, uint64_t, double, std::wstring_view>;
    const Value& Get() const { return m_value; }

private:
    template <class T>
    using Widened = std::conditional_t<std::is_floating_point_v<T>, double,
                                       std::conditional_t<std::is_signed_v<T>, int64_t, uint64_t>>;

    Value m_value;
};

// Conversions d i u x X c s e E f F g G and %, with flags, width and precision, either of them "*". Sizes
// ("l", "I64") are read over: an argument knows its own; but a negative number shown unsigned has the 32 bits
// that
// "%u" and "%lu" have on the system that the formats come from, unless the size is 64 bits. "%s" and "%c" are
// wide text. A conversion that is unknown, without an argument or with one of the wrong type is left as it
// stands; the argument is passed over. Throws std::bad_alloc.
std::wstring FormatText(wchar_t decimal_separator, std::wstring_view format,
                        std::initializer_list<CFormatArgument> arguments);

}  // namespace hx
