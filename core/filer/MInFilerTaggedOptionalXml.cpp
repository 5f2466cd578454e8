#include "core/filer/MInFilerTaggedOptionalXml.h"

#include <utility>

namespace hx {

MInFilerTaggedOptionalXml::MInFilerTaggedOptionalXml(std::wstring text, std::wstring_view root,
                                                     std::wstring_view name_space)
    : m_reader(std::move(text), root, name_space) {}

template <class T>
bool MInFilerTaggedOptionalXml::ReadValue(std::wstring_view tag, T& value, const T& fallback) {
    if (!m_reader.Read(tag, value)) value = fallback;
    return true;
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, std::wstring& value,
                                     const std::wstring& fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, char& value, char fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, double& value, double fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, float& value, float fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, bool& value, bool fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, uint8_t& value, uint8_t fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, uint16_t& value, uint16_t fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, int16_t& value, int16_t fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, uint64_t& value, uint64_t fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, uint32_t& value, uint32_t fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::Read(std::wstring_view tag, int32_t& value, int32_t fallback) {
    return ReadValue(tag, value, fallback);
}

bool MInFilerTaggedOptionalXml::BeginGroup(std::wstring_view tag) {
    m_groups.push_back(m_reader.BeginGroup(tag));
    return true;
}

bool MInFilerTaggedOptionalXml::EndGroup() {
    if (m_groups.empty()) return true;
    if (m_groups.back()) m_reader.EndGroup();
    m_groups.pop_back();
    return true;
}

bool MInFilerTaggedOptionalXml::ExtractGroup(std::wstring_view tag, std::wstring& document) {
    return m_reader.ExtractGroup(tag, document);
}

}  // namespace hx
