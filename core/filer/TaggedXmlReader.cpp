#include "core/filer/TaggedXmlReader.h"

#include <utility>

#include "core/filer/TaggedXml.h"

namespace hx {
TaggedXmlReader::TaggedXmlReader(std::wstring text, std::wstring_view root, std::wstring_view name_space) {
    m_document.Parse(std::move(text));
    m_open = m_document.IsReadable() && m_document.FindElement(root) &&
             (name_space.empty() || m_document.GetAttribute(kNamespaceAttribute) == name_space) &&
             m_document.EnterElement();
}

bool TaggedXmlReader::FindGroup(std::wstring_view tag) {
    if (!m_open) return false;
    const MXmlDocument::Position before = m_document.GetPosition();
    while (m_document.FindElement(tag)) {
        if (m_document.IsBare(tag) || m_document.RawAttribute(kTypeAttribute).empty()) return true;
    }
    m_document.SetPosition(before);
    return false;
}

bool TaggedXmlReader::BeginGroup(std::wstring_view tag) {
    if (!FindGroup(tag) || !m_document.EnterElement()) return false;
    ++m_depth;
    return true;
}

bool TaggedXmlReader::EndGroup() {
    if (m_depth == 0) return false;
    --m_depth;
    return m_document.LeaveElement();
}

bool TaggedXmlReader::ExtractGroup(std::wstring_view tag, std::wstring& document) {
    document.clear();
    if (!FindGroup(tag)) return false;
    const std::wstring_view content = m_document.ElementContent();
    document.append(L"<?").append(kXmlDeclaration).append(L"?>\n<").append(kTaggedXmlRoot);
    if (content.empty()) {
        document.append(L"/>\n");
    } else {
        document.append(L">").append(content).append(L"</").append(kTaggedXmlRoot).append(L">\n");
    }
    return true;
}

}  // namespace hx
