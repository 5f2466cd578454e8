#include "core/errors/MRegisteredClasses.h"

#include "core/errors/MDiagnosticsRegistry.h"

namespace hx {
namespace {

// The entry made last; the others hang behind it.
const MRegisteredClasses*& Entered() {
    static const MRegisteredClasses* entered = nullptr;
    return entered;
}

}  // namespace

MRegisteredClasses::MRegisteredClasses(std::span<const char* const> names)
    : m_names(names), m_entered_before(Entered()) {
    Entered() = this;
    for (const char* const name : names) DiagnosticsRegistry().OnClass(name);
}

void MRegisteredClasses::TellAll(MDiagnosticsRegistryImplementation& registry) {
    for (const MRegisteredClasses* entry = Entered(); entry != nullptr; entry = entry->m_entered_before) {
        for (const char* const name : entry->m_names) registry.OnClass(name);
    }
}

}  // namespace hx
