// Documents as they are written, a line for each tag and each value, and records read from such texts and
// written to them. The record's own element is "E".
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "core/filer/MInFilerTaggedOptionalXml.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/records/RecordType.h"

inline std::wstring Group(std::wstring_view name, std::wstring_view content) {
    std::wstring group(L"<");
    group.append(name).append(L">\n").append(content).append(L"</");
    return group.append(name).append(L">\n");
}

template <class T>
std::wstring Child(std::wstring_view name, std::wstring_view type, const T& value) {
    std::wstring child(L"<");
    child.append(name).append(L" type=\"").append(type).append(L"\">");
    if constexpr (std::is_arithmetic_v<T>) {
        child.append(std::to_wstring(value));
    } else {
        child.append(value);
    }
    return child.append(L"</").append(name).append(L">\n");
}

inline std::wstring Version(int64_t version, std::wstring_view type = L"int") {
    return Child(L"Version", type, version);
}

// What `read` answers of the element. However that ends, the element must have been left.
template <class Reader = hx::MInFilerTaggedXml, class Read>
bool ReadElement(const std::wstring& children, Read read) {
    Reader reader(L"<R>" + Group(L"E", children) + Child(L"behind", L"bool", 1) + L"</R>", L"R");
    const struct Check {
        ~Check() {
            bool behind = false;
            reader.Read(L"behind", behind, false);
            EXPECT_TRUE(behind) << "the element is not left";
        }
        Reader& reader;
    } check{reader};
    hx::MFilerTaggedPair filer(reader);
    return read(filer);
}
template <class Reader = hx::MInFilerTaggedXml, class R>
bool ReadFrom(const std::wstring& children, R& record, const std::type_identity_t<R>& defaults = {}) {
    return ReadElement<Reader>(
        children, [&](hx::MFilerTaggedPair& filer) { return hx::ReadRecord(record, filer, L"E", defaults); });
}

// The children that it writes; "not written" if that fails.
inline std::wstring Written(const hx::RecordType& type, const void* record) {
    hx::MOutFilerTaggedXml writer(L"R");
    hx::MFilerTaggedPair filer(writer);
    if (!type.write(record, filer, L"E")) return L"not written";
    const std::wstring text = writer.TakeText();
    const size_t begin = text.find(L"<E>\n") + 4;
    return text.substr(begin, text.rfind(L"</E>") - begin);
}
template <class R>
std::wstring Written(const R& record) {
    return Written(R::kType, &record);
}
// The record as a child of that name.
template <class R>
std::wstring Written(const R& record, std::wstring_view element) {
    return Group(element, Written(record));
}
