// The module object: the list of the settings classes, and with it the library's count of what is alive. Any
// thread.
#pragma once

#include <span>

#include "platform/com/class_table.h"
#include "platform/registry/class_registration.h"

namespace hx {

struct SettingsClass {
    ClassRow row;
    uint32_t registration_script;  // a resource
    std::span<const ComponentCategory> categories;
};

class SettingsClasses {
public:
    SettingsClasses() noexcept;

    // In the order in which they are registered.
    static std::span<const SettingsClass> List();

    // As ModuleClasses has it.
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
        return m_classes.GetClassObject(clsid, iid, object);
    }
    // Counted is whatever is alive of the whole library.
    HRESULT CanUnloadNow() const noexcept { return m_classes.CanUnloadNow(); }

private:
    ModuleClasses m_classes;
};

}  // namespace hx
