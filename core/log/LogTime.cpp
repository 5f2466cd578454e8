#include "core/log/LogTime.h"

namespace hx {
namespace {

// Decimal, filled with zeros from the left.
void Append(std::wstring& text, int32_t number, size_t width) {
    const std::wstring digits = std::to_wstring(number);
    if (digits.size() < width) text.append(width - digits.size(), L'0');
    text += digits;
}

}  // namespace

std::wstring RecordTimeText(const LocalTime& time) {
    std::wstring text;
    Append(text, time.day, 2);
    Append(text += L'-', time.month, 2);
    Append(text += L'-', time.year, 4);
    Append(text += L" at ", time.hour, 2);
    Append(text += L':', time.minute, 2);
    Append(text += L':', time.second, 2);
    return text;
}

std::wstring FileTimeText(const LocalTime& time) {
    std::wstring text;
    Append(text, time.year, 4);
    Append(text, time.month, 2);
    Append(text, time.day, 2);
    Append(text += L'_', time.hour, 2);
    Append(text, time.minute, 2);
    Append(text, time.second, 2);
    return text;
}

}  // namespace hx
