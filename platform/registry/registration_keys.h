// Keys and values that registering writes and unregistering deletes, with what went wrong in words. For those
// who register classes and type libraries, and for the interpreter of scripts. Any thread; throws
// std::bad_alloc only.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "platform/registry/registration_script.h"

namespace hx {

// A text below HKEY_CLASSES_ROOT; its key, and those above it, are made unless they are there.
struct RegisteredValue {
    std::wstring key;
    std::wstring name;  // empty: the key's default value
    std::wstring text;
};

// What the registry is to say of a library with that absolute file name: the same without links and "..",
// empty for what is no UTF-8.
HX_PLATFORM_API std::wstring RegisteredPath(std::wstring_view file_name);

// What `changes` ends with, which says in its second parameter why it failed, or why all of it is lost. See
// IRegistry::Change.
HX_PLATFORM_API HRESULT ChangeRegistration(
    IRegistry& registry, RegistryRoot root, RegistrationAction action,
    const std::function<HRESULT(IRegistry&, RegistrationError&)>& changes, RegistrationError& error);
// In this order, up to the first failure, as one change. `error` then names the key and says why, with line
// 0.
HX_PLATFORM_API HRESULT WriteRegistration(IRegistry& registry, std::span<const RegisteredValue> values,
                                          RegistrationError& error);
// The key below HKEY_CLASSES_ROOT with all below it. One that is not there is success.
HX_PLATFORM_API HRESULT DeleteRegistration(IRegistry& registry, std::wstring_view key,
                                           RegistrationError& error);
// "cannot ACTION the key HKEY_CLASSES_ROOT\KEY: the system's text".
HX_PLATFORM_API HRESULT KeyRefused(RegistryResult result, std::wstring_view action, std::wstring_view key,
                                   RegistrationError& error);

}  // namespace hx
