// Round numbers of millimetres along an axis. Any thread.
#pragma once

#include <string>
#include <vector>

namespace hx::preview {

// 1, 2 or 5 times a power of ten, the smallest that is not below; 0 if that is no positive number.
double RoundStep(double smallest_mm);

// The multiples of the step from one number to the other, both included; none if they were more than anybody
// could read.
std::vector<double> TicksBetween(double from_mm, double to_mm, double step_mm);

// With as many digits behind the separator as the step has.
std::wstring TickText(double value_mm, double step_mm, wchar_t decimal_separator);

}  // namespace hx::preview
