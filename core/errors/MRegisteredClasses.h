// The classes of this program by name, for the diagnostics registry: each source enters its own at program
// start; a registry that is installed later is told of all of them. Entries and registry belong to one
// module.
#pragma once

#include <span>

namespace hx {

class MDiagnosticsRegistryImplementation;

class MRegisteredClasses {
public:
    // The names are literals, and may have been entered before; the array stays as long as the entry.
    explicit MRegisteredClasses(std::span<const char* const> names);
    MRegisteredClasses(const MRegisteredClasses&) = delete;
    MRegisteredClasses& operator=(const MRegisteredClasses&) = delete;

    static void TellAll(MDiagnosticsRegistryImplementation& registry);

private:
    const std::span<const char* const> m_names;
    const MRegisteredClasses* const m_entered_before;
};

}  // namespace hx
