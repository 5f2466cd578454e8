#include "core/filer/IOutFilerTaggedRegistry.h"

namespace hx {

bool IOutFilerTaggedRegistry::AddComment(std::wstring_view) {
    return false;
}

bool IOutFilerTaggedRegistry::BeginGroup(std::wstring_view tag) {
    PushGroup(tag);
    return true;
}

bool IOutFilerTaggedRegistry::EndGroup() {
    PopGroup();
    return true;
}

bool IOutFilerTaggedRegistry::InsertDocument(std::wstring_view, std::wstring_view) {
    return false;
}

bool IOutFilerTaggedRegistry::Set(std::wstring_view name, const RegistryValue& value) {
    const std::shared_ptr<IRegistry> registry = Registry();
    const std::wstring path = KeyPath(kCompanyKey);
    return IsDone(registry->CreateKey(Root(), path)) && IsDone(registry->SetValue(Root(), path, name, value));
}

}  // namespace hx
