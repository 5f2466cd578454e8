#include "apps/hosting/HowToRegister.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "apps/hosting/ComponentLibraries.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hosting {
namespace {

// No such name, no such class, or a library that is there no more.
constexpr HRESULT kNotRegistered[] = {CO_E_CLASSSTRING, REGDB_E_CLASSNOTREG, CO_E_DLLNOTFOUND};

}  // namespace

std::string HowToRegister(HRESULT result) {
    if (std::ranges::find(kNotRegistered, result) == std::end(kNotRegistered)) return {};
    // A class that cannot be read is not known either.
    const std::wstring fault = StoreFaultText(
        hx::Registry()->OpenKey(hx::RegistryRoot::kClassesRoot, L"CLSID", hx::RegistryAccess::kRead));
    if (!fault.empty()) return "\nClasses cannot be looked up: " + hx::ToUtf8(fault);
    const std::filesystem::path program = hx::ComponentFolder() / "hxregister";
    return "\nThe components are not registered. Register them, for all users: " + program.string();
}

}  // namespace hosting
