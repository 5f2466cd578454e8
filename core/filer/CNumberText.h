// Numbers as text by the rules of the "C" locale, for files and the registry: "." as decimal separator, no
// grouping, whatever the host or the user has set. Only a very long text allocates. Any thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace hx {

// The text of one number, kept in place.
class CNumberText {
public:
    // Decimal: "%u", "%d", "%llu" as the type asks for.
    explicit CNumberText(uint64_t value);
    explicit CNumberText(int64_t value);
    // As "%.<precision>e". At most 40 digits of precision.
    CNumberText(double value, int precision);

    std::wstring_view View() const { return {m_text, m_length}; }
    operator std::wstring_view() const { return View(); }

private:
    void Widen(const char* begin, const char* end);

    wchar_t m_text[56];
    uint32_t m_length;
};

// Reads as an input stream extracts an integer: leading white space, a sign, decimal digits; what follows
// them is left alone. False without digits or beyond the range of the type; `value` is then unchanged. A
// negative number read as unsigned is taken modulo the range.
bool ParseNumber(std::wstring_view text, uint16_t& value);
bool ParseNumber(std::wstring_view text, int16_t& value);
bool ParseNumber(std::wstring_view text, uint32_t& value);
bool ParseNumber(std::wstring_view text, int32_t& value);
bool ParseNumber(std::wstring_view text, uint64_t& value);

// Reads as strtod does, and only white space may follow. A number out of range is taken as infinity or nearly
// zero.
bool ParseNumber(std::wstring_view text, double& value);

// Reads as "%lf" and "%f" scan: like the above, whatever follows the number. (Of "0x" and "infi", which a
// scan refuses, the number in front is taken.)
bool ScanNumber(std::wstring_view text, double& value);
bool ScanNumber(std::wstring_view text, float& value);

}  // namespace hx
