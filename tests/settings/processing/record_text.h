// Records from and to texts, for the tests.
#pragma once

#include <string>

#include "core/filer/MInFilerTaggedOptionalXml.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"

// The element as it stands in a document; empty if it is not written.
template <class R>
std::wstring Written(const R& record, std::wstring_view element) {
    hx::MOutFilerTaggedXml writer(L"R");
    hx::MFilerTaggedPair filer(writer);
    if (!record.WriteTagged(filer, element)) return {};
    const std::wstring text = writer.TakeText();
    const size_t begin = text.find(L"<R>\n") + 4;
    return text.substr(begin, text.rfind(L"</R>") - begin);
}

template <class Reader = hx::MInFilerTaggedXml, class R, class D>
bool ReadFrom(const std::wstring& elements, R& record, std::wstring_view element, const D& defaults) {
    Reader reader(L"<R>" + elements + L"</R>", L"R");
    hx::MFilerTaggedPair filer(reader);
    return record.ReadTagged(filer, element, defaults);
}

inline std::wstring Group(std::wstring_view name, const std::wstring& content) {
    return L"<" + std::wstring(name) + L">" + content + L"</" + std::wstring(name) + L">";
}

template <class T>
std::wstring Child(std::wstring_view name, const wchar_t* type, T value) {
    return L"<" + std::wstring(name) + L" type='" + type + L"'>" + std::to_wstring(value) + L"</" +
           std::wstring(name) + L">";
}

inline std::wstring Version(int version) {
    return Child(L"Version", L"int", version);
}
