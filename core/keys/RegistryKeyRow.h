// What the catalog declares about one key: a row of its table. The rows stand in the ...Keys.h beside this
// file, MRegistryKeyLib gathers them; new keys are described in docs/add_a_key.md. Any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/filer/IFilerTaggedRegistryBase.h"
#include "platform/registry/registry.h"

namespace Orvel::RegistryKeys {

// Integers have several codes, which differ for those only who declare them; all are kept in 32 bits.
enum RegistryKeyType : uint64_t {
    kInteger0 = 0,
    kInteger1 = 1,
    kInteger2 = 2,
    kInteger3 = 3,
    kInteger4 = 4,
    kBoolean = 5,
    kDouble = 7,
    kString = 9,
};

enum RegistryKeyFlags : uint8_t {
    kCreate = 1,  // the key's path is made if it is missing, even by a read
    kView32 = 2,  // below "Software\Wow6432Node", unless the root is the current user's
};

// Any other root makes every access fail.
inline constexpr uint32_t kUser = 0;     // HKEY_CURRENT_USER
inline constexpr uint32_t kMachine = 1;  // HKEY_LOCAL_MACHINE

inline constexpr std::wstring_view kOrvel = hx::IFilerTaggedRegistryBase::kCompanyKey;
// The maker of the measuring arm's data service.
inline constexpr std::wstring_view kRomer = L"Romer";

struct RegistryKeyPlace {
    uint32_t root;
    std::wstring_view path;  // below the company key
    std::wstring_view company = kOrvel;
};

struct RegistryKeyRow {
    uint32_t id;
    RegistryKeyPlace place;
    std::wstring_view value_name;
    RegistryKeyType type;
    uint64_t
        category;    // 0; 1 research; 2 written by an installer or an outside service; 3 devices and clocks
    uint64_t group;  // id of the first key of its group; its own if it is alone
    uint8_t flags;
    std::wstring_view description;  // "topic: explanation [accepted values, or the default]"
};

// The store's root; none if the row has no valid one.
std::optional<hx::RegistryRoot> RootOf(const RegistryKeyRow& row);

// The value's place as people write it, below the company key `company`.
std::wstring FullPath(const RegistryKeyRow& row, std::wstring_view company);

}  // namespace Orvel::RegistryKeys
