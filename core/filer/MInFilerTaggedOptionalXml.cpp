#include "core/filer/MInFilerTaggedOptionalXml.h"

#include <utility>

namespace hx {

MInFilerTaggedOptionalXml::MInFilerTaggedOptionalXml(std::wstring text, std::wstring_view root,
                                                     std::wstring_view name_space)
    : m_reader(std::move(text), root, name_space) {}

bool MInFilerTaggedOptionalXml::BeginGroup(std::wstring_view tag) {
    m_found = m_reader.BeginGroup(tag);
    m_groups.push_back(m_found);
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
