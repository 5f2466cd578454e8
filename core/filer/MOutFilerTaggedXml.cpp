#include "core/filer/MOutFilerTaggedXml.h"

#include <utility>

#include "core/filer/TaggedXml.h"
#include "core/xml/MXmlDocument.h"
#include "core/xml/XmlNames.h"
#include "core/xml/XmlText.h"

namespace hx {
namespace {

// As views with a length: the length of a plain literal would be counted anew for each element.
constexpr std::wstring_view kTagOpen = L"<";
constexpr std::wstring_view kEndTagOpen = L"</";
constexpr std::wstring_view kTagClose = L">";
constexpr std::wstring_view kLineClose = L">\n";
constexpr std::wstring_view kEmptyClose = L"/>\n";
constexpr std::wstring_view kTypeOpen = L" type=\"";
constexpr std::wstring_view kValueOpen = L"\">";
constexpr std::wstring_view kEmptyValue = L"\"/>\n";

}  // namespace

MOutFilerTaggedXml::MOutFilerTaggedXml(std::wstring_view root, std::wstring_view name_space) {
    if (!IsWritableName(root)) return;
    m_text.append(L"<?").append(kXmlDeclaration).append(L"?>\n");
    Open(root);
    if (name_space.empty()) return;
    (m_text += L' ').append(kNamespaceAttribute).append(L"=\"");
    AppendEscaped(m_text, name_space, EscapeSet::kAttribute);
    m_text += L'"';
}

void MOutFilerTaggedXml::Open(std::wstring_view tag) {
    m_text.append(kTagOpen);
    m_open.push_back({m_text.size(), tag.size()});
    m_text.append(tag);
    m_start_tag_open = true;
}

// What is written next lies in the innermost element.
void MOutFilerTaggedXml::BeginChild() {
    if (m_start_tag_open) m_text.append(kLineClose);
    m_start_tag_open = false;
}

bool MOutFilerTaggedXml::WriteText(std::wstring_view tag, std::wstring_view type, std::wstring_view text,
                                   bool holds_no_markup) {
    if (m_open.empty() || !IsWritableName(tag)) return false;
    BeginChild();
    m_text.append(kTagOpen).append(tag).append(kTypeOpen).append(type);
    if (text.empty()) {
        m_text.append(kEmptyValue);
        return true;
    }
    m_text.append(kValueOpen);
    if (holds_no_markup) {
        m_text.append(text);
    } else {
        AppendEscaped(m_text, text, EscapeSet::kText);
    }
    m_text.append(kEndTagOpen).append(tag).append(kLineClose);
    return true;
}

bool MOutFilerTaggedXml::AddComment(std::wstring_view text) {
    constexpr std::wstring_view kEnd = L"-->";
    if (m_open.empty() || text.find(kEnd) != std::wstring_view::npos) return false;
    BeginChild();
    m_text.append(L"<!--").append(text).append(kEnd) += L'\n';
    return true;
}

bool MOutFilerTaggedXml::BeginGroup(std::wstring_view tag) {
    if (m_open.empty() || !IsWritableName(tag)) return false;
    BeginChild();
    Open(tag);
    return true;
}

bool MOutFilerTaggedXml::EndGroup() {
    if (m_open.size() < 2) return false;
    AppendEnd(m_text, m_open.back(), m_start_tag_open);
    m_start_tag_open = false;
    m_open.pop_back();
    return true;
}

bool MOutFilerTaggedXml::InsertDocument(std::wstring_view tag, std::wstring_view document) {
    if (m_open.empty() || !IsWritableName(tag)) return false;
    MXmlDocument inserted;
    inserted.Parse(std::wstring(document));
    if (!inserted.IsReadable()) return false;
    const std::wstring_view content = inserted.ElementContent();
    BeginGroup(tag);
    if (!content.empty()) m_text.append(kTagClose).append(content);
    m_start_tag_open = content.empty();
    return EndGroup();
}

void MOutFilerTaggedXml::AppendEnd(std::wstring& text, const Name& name, bool empty) const {
    if (empty) {
        text.append(kEmptyClose);
    } else {
        text.append(kEndTagOpen).append(m_text, name.offset, name.length).append(kLineClose);
    }
}

void MOutFilerTaggedXml::AppendEnds(std::wstring& text) const {
    bool empty = m_start_tag_open;
    for (auto name = m_open.rbegin(); name != m_open.rend(); ++name) {
        AppendEnd(text, *name, empty);
        empty = false;
    }
}

std::wstring MOutFilerTaggedXml::GetText() const {
    std::wstring text = m_text;
    AppendEnds(text);
    return text;
}

std::wstring MOutFilerTaggedXml::TakeText() {
    AppendEnds(m_text);
    m_open.clear();
    return std::exchange(m_text, {});
}

}  // namespace hx
