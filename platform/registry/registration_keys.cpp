#include "platform/registry/registration_keys.h"

#include <filesystem>
#include <system_error>

#include "platform/system/message_table.h"
#include "platform/system/one_line.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

constexpr RegistryRoot kRoot = RegistryRoot::kClassesRoot;

std::wstring TextOf(RegistryResult result) {
    const std::wstring number = std::to_wstring(static_cast<uint32_t>(result));
    return OneLine(SystemMessage(HresultOf(result)).value_or(L"error " + number));
}

}  // namespace

std::wstring RegisteredPath(std::wstring_view file_name) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::canonical(ToUtf8(file_name), error);
    return error ? std::wstring(file_name) : FromUtf8(path.native()).value_or(std::wstring());
}

HRESULT KeyRefused(RegistryResult result, std::wstring_view action, std::wstring_view key,
                   RegistrationError& error) {
    error = {0, L"cannot " + std::wstring(action) + L" the key HKEY_CLASSES_ROOT\\" + std::wstring(key) +
                    L": " + TextOf(result)};
    return HresultOf(result);
}

HRESULT ChangeRegistration(IRegistry& registry, RegistryRoot root, RegistrationAction action,
                           const std::function<HRESULT(IRegistry&, RegistrationError&)>& changes,
                           RegistrationError& error) {
    const bool is_registering = action == RegistrationAction::kRegister;
    HRESULT result = S_OK;
    const RegistryResult changed = registry.Change(
        root, is_registering ? RegistryChange::kMake : RegistryChange::kDelete, [&](IRegistry& changing) {
            error = {};
            result = changes(changing, error);
        });
    if (FAILED(result) || changed == RegistryResult::kDone) return result;
    error = {0, L"cannot change the registry: " + TextOf(changed)};
    return HresultOf(changed);
}

HRESULT WriteRegistration(IRegistry& registry, std::span<const RegisteredValue> values,
                          RegistrationError& error) {
    const auto write = [values](IRegistry& changing, RegistrationError& reason) {
        for (const RegisteredValue& value : values) {
            RegistryResult result = changing.CreateKey(kRoot, value.key);
            if (result == RegistryResult::kDone)
                result = changing.SetValue(kRoot, value.key, value.name, value.text);
            if (result != RegistryResult::kDone) return KeyRefused(result, L"write", value.key, reason);
        }
        return S_OK;
    };
    return ChangeRegistration(registry, kRoot, RegistrationAction::kRegister, write, error);
}

HRESULT DeleteRegistration(IRegistry& registry, std::wstring_view key, RegistrationError& error) {
    const RegistryResult result = registry.DeleteKey(kRoot, key);
    if (result == RegistryResult::kDone || result == RegistryResult::kNotFound) return S_OK;
    return KeyRefused(result, L"delete", key, error);
}

}  // namespace hx
