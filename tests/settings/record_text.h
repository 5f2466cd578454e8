// Reads a record from the children of its element and writes it, as documents hold it.
#pragma once

#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"

inline std::wstring Child(std::wstring_view name, std::wstring_view type, std::wstring_view value) {
    std::wstring child(L"<");
    child.append(name).append(L" type=\"").append(type).append(L"\">").append(value);
    return child.append(L"</").append(name).append(L">\n");
}

template <class Reader = hx::MInFilerTaggedXml, class R>
bool ReadFrom(const std::wstring& children, R& record, const R& defaults) {
    Reader reader(L"<R><E>" + children + L"</E></R>", L"R");
    hx::MFilerTaggedPair filer(reader);
    return record.ReadTagged(filer, L"E", defaults);
}

// The children that it writes, one a line; "not written" if that fails.
template <class R>
std::wstring Written(const R& record) {
    hx::MOutFilerTaggedXml writer(L"R");
    hx::MFilerTaggedPair filer(writer);
    if (!record.WriteTagged(filer, L"E")) return L"not written";
    const std::wstring text = writer.TakeText();
    const size_t begin = text.find(L"<E>\n") + 4;
    return text.substr(begin, text.find(L"</E>") - begin);
}
