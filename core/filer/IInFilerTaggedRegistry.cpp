#include "core/filer/IInFilerTaggedRegistry.h"

namespace hx {

bool IInFilerTaggedRegistry::BeginGroup(std::wstring_view tag) {
    PushGroup(tag);
    return true;
}

bool IInFilerTaggedRegistry::EndGroup() {
    PopGroup();
    return true;
}

bool IInFilerTaggedRegistry::ExtractGroup(std::wstring_view, std::wstring& document) {
    document.clear();
    return false;
}

bool IInFilerTaggedRegistry::Query(std::wstring_view name, RegistryValue& stored) {
    const std::shared_ptr<IRegistry> registry = Registry();
    const std::wstring path = KeyPath(m_company_key.empty() ? kCompanyKey : m_company_key);
    // Whoever may not make the key may still read it.
    if (m_create) registry->CreateKey(Root(), path);
    return IsDone(registry->QueryValue(Root(), path, name, stored));
}

}  // namespace hx
