// Why a registry store refuses something, in the few kinds that make a difference to what is done about it.
// Thrown and caught within this folder.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/registry/registry.h"

namespace hx {

enum class StoreFault {
    kDamage,     // what is in the file is no database, none of ours, or no longer a sound one
    kNewer,      // made by a later version of this program
    kMissing,    // there is no such file
    kNoAccess,   // this user may not
    kUnsettled,  // not readable until someone with the right to write has opened it
    kDiskFull,
    kBusy,
    kTooBig,  // a longer text than a database holds
    kIo,      // everything else that the system refuses
};

class StoreError : public std::runtime_error {
public:
    StoreError(StoreFault fault, const std::string& message) : std::runtime_error(message), m_fault(fault) {}

    StoreFault Fault() const { return m_fault; }

private:
    StoreFault m_fault;
};

// What an errno value stands for.
StoreFault FaultOfSystem(int system_error);
// Throws what errno says about the path.
[[noreturn]] void ThrowSystemError(const std::string& path);

// What the caller of the registry is told.
RegistryResult ResultOf(StoreFault fault);

}  // namespace hx
