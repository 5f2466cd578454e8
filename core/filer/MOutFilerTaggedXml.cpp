#include "core/filer/MOutFilerTaggedXml.h"

#include "core/filer/TaggedType.h"
#include "core/filer/TaggedXml.h"

namespace hx {

MOutFilerTaggedXml::MOutFilerTaggedXml(std::wstring_view root, std::wstring_view name_space) {
    const std::wstring_view attribute = name_space.empty() ? std::wstring_view() : kNamespaceAttribute;
    m_open = m_document.AddNode(kInstructionNode, kXmlDeclaration) &&
             m_document.AddElement(root, {}, 0, attribute, name_space) && m_document.EnterElement();
    if (!m_open) m_document.TakeText();
}

template <class T, class Value>
bool MOutFilerTaggedXml::WriteValue(std::wstring_view tag, Value value) {
    return m_open &&
           m_document.AddElement(tag, TaggedType<T>::Format(value), 0, kTypeAttribute, TaggedType<T>::kWord);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, char value) {
    return WriteValue<char>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, std::wstring_view value) {
    return WriteValue<std::wstring>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, double value) {
    return WriteValue<double>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, float value) {
    return WriteValue<float>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, bool value) {
    return WriteValue<bool>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, uint8_t value) {
    return WriteValue<uint8_t>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, uint16_t value) {
    return WriteValue<uint16_t>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, int16_t value) {
    return WriteValue<int16_t>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, uint64_t value) {
    return WriteValue<uint64_t>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, uint32_t value) {
    return WriteValue<uint32_t>(tag, value);
}

bool MOutFilerTaggedXml::Write(std::wstring_view tag, int32_t value) {
    return WriteValue<int32_t>(tag, value);
}

bool MOutFilerTaggedXml::AddComment(std::wstring_view text) {
    return m_open && m_document.AddNode(kCommentNode, text);
}

bool MOutFilerTaggedXml::BeginGroup(std::wstring_view tag) {
    if (!m_open || !m_document.AddElement(tag) || !m_document.EnterElement()) return false;
    ++m_depth;
    return true;
}

bool MOutFilerTaggedXml::EndGroup() {
    if (m_depth == 0) return false;
    --m_depth;
    return m_document.LeaveElement();
}

bool MOutFilerTaggedXml::InsertDocument(std::wstring_view tag, std::wstring_view document) {
    if (!m_open) return false;
    MXmlDocument inserted;
    inserted.Parse(std::wstring(document));
    if (!inserted.IsReadable() || !inserted.FindElement()) return false;
    return m_document.AddElement(tag) && m_document.SetElementContent(inserted.ElementContent());
}

std::wstring MOutFilerTaggedXml::TakeText() {
    m_open = false;
    m_depth = 0;
    return m_document.TakeText();
}

}  // namespace hx
