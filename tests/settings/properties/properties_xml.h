// Short ways to write what the tests of driver and device properties read.
#pragma once

#include <string>
#include <string_view>

#include "tests/settings/record_text.h"

namespace properties_xml {

inline std::wstring Text(std::wstring_view name, std::wstring_view text) {
    return Child(name, L"string", text);
}
inline std::wstring Uint(std::wstring_view name, int64_t value) {
    return Child(name, L"uint", value);
}
inline std::wstring Int(std::wstring_view name, int64_t value) {
    return Child(name, L"int", value);
}
inline std::wstring Float(std::wstring_view name, double value) {
    return Child(name, L"float", value);
}
inline std::wstring Points(std::wstring_view element, std::initializer_list<double> values) {
    std::wstring body;
    const wchar_t* name = L"XYZ";
    for (const double value : values) body += Float(std::wstring_view(name++, 1), value);
    return Group(element, body);
}

}  // namespace properties_xml
