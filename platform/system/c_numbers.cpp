#include "platform/system/c_numbers.h"

#include <locale.h>
#include <stdlib.h>

namespace hx {
namespace {

// Never freed: numbers are read until the process ends.
locale_t CLocale() {
    static const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return c_locale;
}

template <class T>
T Parse(T (*convert)(const char*, char**, locale_t), const char* text, const char** end) {
    char* stop = nullptr;
    const T value = convert(text, &stop, CLocale());
    if (end) *end = stop;
    return value;
}

}  // namespace

double ParseDoubleC(const char* text, const char** end) {
    return Parse(&strtod_l, text, end);
}

float ParseFloatC(const char* text, const char** end) {
    return Parse(&strtof_l, text, end);
}

}  // namespace hx
