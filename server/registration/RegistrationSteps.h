// The steps of entering the library in the registry and of removing it. Each says in `error` why it failed.
// They throw std::bad_alloc only. For LibraryRegistration, on any thread.
#pragma once

#include <cstdint>
#include <string>

#include "platform/module/module.h"
#include "platform/registry/registration_script.h"

namespace hx {

struct RegistrationRun {
    IRegistry& registry;
    RegistrationAction action;
    const ResourceModule& module;
    std::wstring library;       // its path as the registry is to say
    uint32_t resource = 0;      // of the script that was run last, 0 for none
    RegistrationError error{};  // of a failure
};

// The script of the application that the library belongs to, which a product may add: there is none here.
HRESULT RunApplicationScript(RegistrationRun& run);
// Of each class its script, and behind it the component categories that the class declares; the other way
// round when removing.
HRESULT UpdateSettingsClasses(RegistrationRun& run);
HRESULT UpdateTypeLibrary(RegistrationRun& run);
// By their factories.
HRESULT UpdateControls(RegistrationRun& run);
// Below which other libraries enter their components: it stays when this one is removed.
HRESULT RunComponentsScript(RegistrationRun& run);

}  // namespace hx
