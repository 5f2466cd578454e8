#include "platform/registry/registration_keys.h"

#include <filesystem>
#include <system_error>

#include "platform/system/message_table.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

constexpr RegistryRoot kRoot = RegistryRoot::kClassesRoot;

// In one line, as the system's texts end with that of their own.
std::wstring Reason(RegistryResult result) {
    std::wstring text = SystemMessage(HresultOf(result)).value_or(L"");
    text.resize(text.find_last_not_of(L"\r\n") + 1);
    return text.empty() ? L"error " + std::to_wstring(static_cast<uint32_t>(result)) : text;
}

}  // namespace

HRESULT HresultOf(RegistryResult result) {
    constexpr uint32_t kWin32 = 0x80070000;
    return result == RegistryResult::kDone ? S_OK
                                           : static_cast<HRESULT>(kWin32 | static_cast<uint32_t>(result));
}

std::wstring RegisteredPath(std::wstring_view file_name) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::canonical(ToUtf8(file_name), error);
    return error ? std::wstring(file_name) : FromUtf8(path.native()).value_or(std::wstring());
}

HRESULT RegistrationFailure(RegistryResult result, std::wstring_view action, std::wstring_view key,
                            RegistrationError& error) {
    error = {0, L"cannot " + std::wstring(action) + L" the key HKEY_CLASSES_ROOT\\" + std::wstring(key) +
                    L": " + Reason(result)};
    return HresultOf(result);
}

HRESULT WriteRegistration(IRegistry& registry, std::span<const RegistrationValue> values,
                          RegistrationError& error) {
    for (const RegistrationValue& value : values) {
        RegistryResult result = registry.CreateKey(kRoot, value.key);
        if (result == RegistryResult::kDone)
            result = registry.SetValue(kRoot, value.key, value.name, value.text);
        if (result != RegistryResult::kDone) return RegistrationFailure(result, L"write", value.key, error);
    }
    return S_OK;
}

HRESULT DeleteRegistration(IRegistry& registry, std::wstring_view key, RegistrationError& error) {
    const RegistryResult result = registry.DeleteKey(kRoot, key);
    if (result == RegistryResult::kDone || result == RegistryResult::kNotFound) return S_OK;
    return RegistrationFailure(result, L"delete", key, error);
}

}  // namespace hx
