// hxctl register, unregister, classes: the component classes, as they are registered for all users.
#pragma once

#include <string>
#include <vector>

#include "apps/hosting/ComponentLibraries.h"
#include "apps/hxctl/command.h"

namespace hxctl {

// hxctl register|unregister [--library FILE]...; without one, the libraries of this installation. What
// follows a library that fails is done all the same.
Outcome RunRegistration(hx::RegistrationAction action, const std::vector<std::string>& libraries, bool json);

// hxctl classes: what can be created, and whether it really can be. kRefused if something cannot be.
Outcome RunClasses(bool json);

// hxctl classes --tree [--all]: what stands in the registry, of the libraries of this installation or of all.
Outcome RunClassTree(bool all, bool json);

}  // namespace hxctl
