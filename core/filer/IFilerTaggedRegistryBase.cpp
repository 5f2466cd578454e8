#include "core/filer/IFilerTaggedRegistryBase.h"

namespace hx {

std::wstring IFilerTaggedRegistryBase::KeyPath(std::wstring_view company_key) const {
    std::wstring path = L"Software";
    const auto add = [&path](std::wstring_view name) {
        path += L'\\';
        path += name;
    };
    if (m_view_32_bit && m_root != RegistryRoot::kCurrentUser) add(L"Wow6432Node");
    add(company_key);
    add(m_base_path);
    for (const std::wstring& group : m_groups) add(group);
    return path;
}

}  // namespace hx
