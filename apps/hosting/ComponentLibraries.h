// The component libraries of this installation, and what is told when one of them cannot be registered: the
// same from every program. Any thread. Throws std::bad_alloc.
#pragma once

#include <string>
#include <vector>

#include "platform/com/hresult.h"
#include "platform/registry/registration_script.h"
#include "platform/registry/registry.h"

namespace hosting {

// Absolute, in the order in which they are registered.
std::vector<std::wstring> ComponentLibraries();

struct RegistrationAnswer {
    HRESULT result;
    std::wstring reason;  // with the library's name; empty unless it failed
};
RegistrationAnswer RunRegistration(hx::RegistrationAction action, const std::wstring& library);

// Whether objects can be made of what lies there: the library is loaded, and none is made.
RegistrationAnswer CheckLibrary(const std::wstring& library);

// Why the store of all users' classes was of no use, with its file; empty for what is no fault of the store.
std::wstring StoreFaultText(hx::RegistryResult result);

}  // namespace hosting
