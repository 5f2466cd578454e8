// The factories of the pages' controls and of their property page: what each creates its objects from, and
// how it enters its class in the registry and removes it. Called by the library's entry points, on any
// thread.
#pragma once

#include <span>
#include <string_view>

#include "platform/com/class_table.h"
#include "platform/module/module.h"
#include "platform/registry/registration_script.h"

namespace hx {

// What a factory registers its class with.
struct FactoryRegistration {
    IRegistry& registry;
    RegistrationAction action;
    const ResourceModule& module;  // its own strings name the classes: they are for the whole machine
    std::wstring_view library;     // that creates the objects: its path
    RegistrationError& error;      // of a failure
};

// A factory's row has no description: the class's name is a string resource.
struct ControlFactory {
    const ClassRow& row;
    // Throws std::bad_alloc only.
    HRESULT (*update_registry)(const ClassRow& row, const FactoryRegistration& registration);
};

// The rows are in the order of the factories.
std::span<const ControlFactory> ControlFactories();
std::span<const ClassRow> ControlFactoryRows();

}  // namespace hx
