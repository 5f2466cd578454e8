// Short ways to write what the tests of driver and device properties read.
#pragma once

#include <string>
#include <string_view>

#include "core/filer/MFilerTaggedPair.h"
#include "core/filer/MInFilerTaggedXml.h"

namespace properties_xml {

inline std::wstring Value(std::wstring_view name, std::wstring_view type, std::wstring_view text) {
    return L"<" + std::wstring(name) + L" type='" + std::wstring(type) + L"'>" + std::wstring(text) + L"</" +
           std::wstring(name) + L">";
}
inline std::wstring Text(std::wstring_view name, std::wstring_view text) {
    return Value(name, L"string", text);
}
inline std::wstring Uint(std::wstring_view name, int64_t value) {
    return Value(name, L"uint", std::to_wstring(value));
}
inline std::wstring Int(std::wstring_view name, int64_t value) {
    return Value(name, L"int", std::to_wstring(value));
}
inline std::wstring Float(std::wstring_view name, double value) {
    return Value(name, L"float", std::to_wstring(value));
}
inline std::wstring Group(std::wstring_view name, std::wstring_view body) {
    return L"<" + std::wstring(name) + L">" + std::wstring(body) + L"</" + std::wstring(name) + L">";
}
inline std::wstring Points(std::wstring_view element, std::initializer_list<double> values) {
    std::wstring body;
    const wchar_t* name = L"XYZ";
    for (const double value : values) body += Float(std::wstring_view(name++, 1), value);
    return Group(element, body);
}

// The record read from an element "R" of that body, and what the read answered.
template <class R>
bool Read(R& record, const std::wstring& body, const R& defaults = {}) {
    hx::MInFilerTaggedXml reader(Group(L"Root", Group(L"R", body)), L"Root");
    hx::MFilerTaggedPair filer(reader);
    return record.ReadTagged(filer, L"R", defaults);
}

}  // namespace properties_xml
