#include "platform/system/c_numbers.h"

#include <locale.h>
#include <stdlib.h>

namespace hx {

double ParseDoubleC(const char* text, const char** end) {
    // Never freed: numbers are read until the process ends.
    static const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    char* stop = nullptr;
    const double value = strtod_l(text, &stop, c_locale);
    if (end) *end = stop;
    return value;
}

}  // namespace hx
