#include "preview/MillimetreScale.h"

#include <array>
#include <charconv>
#include <cmath>

namespace hx::preview {
namespace {

constexpr int kMostTicks = 200;
constexpr int kMostDecimals = 9;

}  // namespace

double RoundStep(double smallest_mm) {
    if (!(smallest_mm > 0) || !std::isfinite(smallest_mm)) return 0;
    const double power = std::pow(10.0, std::floor(std::log10(smallest_mm)));
    for (const double times : {1.0, 2.0, 5.0}) {
        // What is not below but for the last digit of a double is the step itself.
        if (times * power >= smallest_mm * (1 - 1e-9)) return times * power;
    }
    return 10 * power;
}

std::vector<double> TicksBetween(double from_mm, double to_mm, double step_mm) {
    std::vector<double> ticks;
    if (!(step_mm > 0) || !((to_mm - from_mm) / step_mm < kMostTicks)) return ticks;
    const double first = std::ceil(from_mm / step_mm - 1e-9);
    if (first + 1 == first) return ticks;  // finer than numbers of that size are
    for (int i = 0; i < kMostTicks && (first + i) * step_mm <= to_mm + step_mm * 1e-9; ++i) {
        ticks.push_back((first + i) * step_mm + 0.0);  // no negative zero
    }
    return ticks;
}

std::wstring TickText(double value_mm, double step_mm, wchar_t decimal_separator) {
    const double power = std::floor(std::log10(step_mm) + 1e-9);
    const int decimals = power >= 0 ? 0 : static_cast<int>(std::min(-power, double{kMostDecimals}));
    std::array<char, 400> digits;
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value_mm,
                                            std::chars_format::fixed, decimals);
    std::wstring text;
    if (error != std::errc()) return text;
    for (const char* digit = digits.data(); digit != end; ++digit) {
        // The sign that is as wide as a plus, so that numbers on both sides of 0 look alike.
        text += *digit == '.' ? decimal_separator : *digit == '-' ? L'\u2212' : static_cast<wchar_t>(*digit);
    }
    return text;
}

}  // namespace hx::preview
