#include "core/filer/MInFilerTaggedXml.h"

#include <utility>

namespace hx {

MInFilerTaggedXml::MInFilerTaggedXml(std::wstring text, std::wstring_view root, std::wstring_view name_space)
    : m_reader(std::move(text), root, name_space) {}

bool MInFilerTaggedXml::BeginGroup(std::wstring_view tag) {
    return m_reader.BeginGroup(tag);
}

bool MInFilerTaggedXml::EndGroup() {
    return m_reader.EndGroup();
}

bool MInFilerTaggedXml::ExtractGroup(std::wstring_view tag, std::wstring& document) {
    return m_reader.ExtractGroup(tag, document);
}

}  // namespace hx
