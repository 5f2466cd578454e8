#include "platform/registry/type_library_registration.h"

#include <vector>

#include "platform/registry/registration_keys.h"

namespace hx {
namespace {

constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"\\0\\linux64" : L"\\0\\linux32";

constexpr std::wstring_view kLibraries = L"TypeLib";

std::wstring KeyOf(const GUID& library) {
    return std::wstring(kLibraries) + L"\\" + GuidToText(library);
}

HRESULT DeleteUnlessInUse(IRegistry& registry, std::wstring_view key, RegistrationError& error) {
    std::vector<std::wstring> below;
    const RegistryResult listed = registry.ListKeys(RegistryRoot::kClassesRoot, key, below);
    if (listed == RegistryResult::kNotFound) return S_OK;
    if (listed != RegistryResult::kDone) return KeyRefused(listed, L"read", key, error);
    return below.empty() ? DeleteRegistration(registry, key, error) : S_OK;
}

}  // namespace

HRESULT WriteTypeLibraryRegistration(IRegistry& registry, const TypeLibraryRegistration& of,
                                     RegistrationError& error) {
    const std::wstring key = KeyOf(of.id) + L"\\" + std::wstring(of.version);
    const size_t name = of.file.rfind(L'/');
    const RegisteredValue values[] = {
        {key, L"", std::wstring(of.name)},
        {key + kPlatform, L"", std::wstring(of.file)},
        {key + L"\\FLAGS", L"", L"0"},
        {key + L"\\HELPDIR", L"", std::wstring(of.file.substr(0, name == of.file.npos ? 0 : name))},
    };
    return WriteRegistration(registry, values, error);
}

HRESULT DeleteTypeLibraryRegistration(IRegistry& registry, const TypeLibraryRegistration& of,
                                      RegistrationError& error) {
    const auto remove = [&of](IRegistry& changing, RegistrationError& reason) {
        const std::wstring key = KeyOf(of.id);
        HRESULT result = DeleteRegistration(changing, key + L"\\" + std::wstring(of.version), reason);
        // Nothing of a library without a version, and no key for libraries where there is none.
        for (const std::wstring_view each : {std::wstring_view(key), kLibraries}) {
            if (SUCCEEDED(result)) result = DeleteUnlessInUse(changing, each, reason);
        }
        return result;
    };
    return ChangeRegistration(registry, RegistryRoot::kClassesRoot, RegistrationAction::kUnregister, remove,
                              error);
}

}  // namespace hx
