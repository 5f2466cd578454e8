#include "core/filer/MFilerTaggedPair.h"

namespace hx {

bool MFilerTaggedPair::BeginGroup(std::wstring_view tag) {
    const bool read = m_in == nullptr || m_in->BeginGroup(tag);
    const bool written = m_out == nullptr || m_out->BeginGroup(tag);
    return (m_in != nullptr || m_out != nullptr) && read && written;
}

bool MFilerTaggedPair::EndGroup() {
    const bool read = m_in == nullptr || m_in->EndGroup();
    const bool written = m_out == nullptr || m_out->EndGroup();
    return (m_in != nullptr || m_out != nullptr) && read && written;
}

bool MFilerTaggedPair::ExtractGroup(std::wstring_view tag, std::wstring& document) {
    return m_in != nullptr && m_in->ExtractGroup(tag, document);
}

bool MFilerTaggedPair::AddComment(std::wstring_view text) {
    return m_out != nullptr && m_out->AddComment(text);
}

bool MFilerTaggedPair::InsertDocument(std::wstring_view tag, std::wstring_view document) {
    return m_out != nullptr && m_out->InsertDocument(tag, document);
}

}  // namespace hx
