// The catalog of all values of the registry that components of the suite read or write: code asks here for a
// key by its id and never spells a path. Any thread.
#pragma once

#include <cstdint>
#include <span>

#include "core/keys/IRegistryKeyElementBase.h"
#include "core/keys/RegistryKeyRow.h"

namespace Orvel::RegistryKeys {

class MRegistryKeyLib {
public:
    // Ids run from 0 to here, without gaps.
    static constexpr uint32_t kKeyCount = 190;

    // The element lives as long as the module. Raises MRegistryKeyLib.GetRegistryKey:UndefinedKeyId, with the
    // parameter "keyId", for an id that no key has.
    static const IRegistryKeyElementBase& GetRegistryKey(uint32_t key_id);

    // What is declared about all keys, in the order of their ids.
    static std::span<const RegistryKeyRow, kKeyCount> Rows();
};

}  // namespace Orvel::RegistryKeys
