// The registry: trees of keys with named, typed values, shared by every process of the machine. Asked by the
// registry filers, the class lookup and the registration of components, on any thread; every operation stands
// alone, so nothing is to be closed.
//
// Paths are key names parted by "\", without one in front; an empty path is the root itself. Names of keys
// and values are found without regard to case and kept as they were first written. They may have any length
// and hold any character, but a key name no "\". No key lies deeper than kMaxRegistryDepth.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/api.h"
#include "platform/com/hresult.h"

namespace hx {

enum class RegistryRoot : uint32_t {
    kCurrentUser,   // HKEY_CURRENT_USER, in the user's store
    kLocalMachine,  // HKEY_LOCAL_MACHINE, in the machine's
    kClassesRoot,   // HKEY_CLASSES_ROOT, in the machine's
};

// Whether one store holds both.
constexpr bool LieTogether(RegistryRoot a, RegistryRoot b) {
    return (a == RegistryRoot::kCurrentUser) == (b == RegistryRoot::kCurrentUser);
}

inline constexpr size_t kMaxRegistryDepth = 512;

enum class RegistryAccess { kRead, kReadWrite };

// What several changes are for; without a store, deleting makes none.
enum class RegistryChange { kMake, kDelete };

// With the numbers that the system has for them.
enum class RegistryResult : uint32_t {
    kDone = 0,
    kNotFound = 2,      // no such key, or no such value
    kAccessDenied = 5,  // read-only for this user
    kInvalid = 87,      // an unknown root; a root that is to be deleted; more than the registry holds
    kDiskFull = 112,
    kBusy = 170,       // other processes held the store for too long
    kDamaged = 1009,   // the store cannot be used at all, or the value not read
    kIoFailed = 1016,  // the system could not read or write the store
};

// S_OK, or the number as the system makes an HRESULT of it: 0x80070005 for kAccessDenied.
constexpr HRESULT HresultOf(RegistryResult result) {
    return result == RegistryResult::kDone
               ? S_OK
               : static_cast<HRESULT>(0x80070000u | static_cast<uint32_t>(result));
}

// REG_SZ or REG_DWORD.
using RegistryValue = std::variant<std::wstring, uint32_t>;

struct NamedRegistryValue {
    std::wstring name;  // as first written
    RegistryValue value;
};

// The state of what holds a root, compared and never looked into.
struct RegistryStamp {
    uint64_t source = 0;  // NewRegistrySource() of whoever gave it; none other gives an equal stamp
    std::array<uint64_t, 7> state{};

    bool operator==(const RegistryStamp&) const = default;
};

// Throws std::bad_alloc only.
class IRegistry {
public:
    virtual ~IRegistry() = default;

    // kDone if the key is there and such an access to it is allowed.
    virtual RegistryResult OpenKey(RegistryRoot root, std::wstring_view path, RegistryAccess access) = 0;
    // Makes the key, and those above it, unless they are there; asks for the right to write.
    virtual RegistryResult CreateKey(RegistryRoot root, std::wstring_view path) = 0;
    // Deletes the key and all below it.
    virtual RegistryResult DeleteKey(RegistryRoot root, std::wstring_view path) = 0;

    // `value` is unchanged on failure. The empty name is the key's default value.
    virtual RegistryResult QueryValue(RegistryRoot root, std::wstring_view path, std::wstring_view name,
                                      RegistryValue& value) = 0;
    // The key must be there. Once this returns kDone the value survives the end of the process, however it
    // ends.
    virtual RegistryResult SetValue(RegistryRoot root, std::wstring_view path, std::wstring_view name,
                                    const RegistryValue& value) = 0;
    virtual RegistryResult DeleteValue(RegistryRoot root, std::wstring_view path, std::wstring_view name) = 0;

    // The names of the keys right below, and the values of the key, in the order of their names without case.
    virtual RegistryResult ListKeys(RegistryRoot root, std::wstring_view path,
                                    std::vector<std::wstring>& names) = 0;
    virtual RegistryResult ListValues(RegistryRoot root, std::wstring_view path,
                                      std::vector<NamedRegistryValue>& values) = 0;

    // Runs `changes`, whose operations others see all at once, and nobody else's come between them. It uses
    // no registry but the one it is given, only roots that lie together with `root`, and throws
    // std::bad_alloc only. It may run several times, each time on another store, so it begins anew each time.
    // What was done before an operation was refused stays. Anything but kDone says that all of it is lost:
    // the store failed.
    virtual RegistryResult Change([[maybe_unused]] RegistryRoot root, [[maybe_unused]] RegistryChange change,
                                  const std::function<void(IRegistry&)>& changes) {
        changes(*this);
        return RegistryResult::kDone;
    }

    // For whoever keeps what was read: as long as equal stamps are given, what was read after the first of
    // them, and ended with kDone or kNotFound, would be read again. Far cheaper than reading. Nothing if that
    // cannot be told now.
    virtual std::optional<RegistryStamp> Stamp([[maybe_unused]] RegistryRoot root) { return std::nullopt; }
};

// A number that this process has not given to anybody yet.
HX_PLATFORM_API uint64_t NewRegistrySource();

// The registry of this process: the store on disk, opened at the first call, unless another was installed.
// Where it lies stands in store_location.h.
HX_PLATFORM_API std::shared_ptr<IRegistry> Registry();
// Installs `registry`, null for the store on disk, opened anew. For tests and tools.
HX_PLATFORM_API void SetRegistry(std::shared_ptr<IRegistry> registry);

// How long an operation waits for other processes before it ends with kBusy.
inline constexpr std::chrono::milliseconds kRegistryPatience{5000};
// The registry of these two files, one connection each. They are opened at the first use; they are made, with
// the folders that they lie in, by the first write. While a file is missing there are no keys below its
// roots. A damaged file is set aside and another one begun, which is reported. Everybody may read the
// machine's.
HX_PLATFORM_API std::shared_ptr<IRegistry> OpenRegistryStore(
    const std::filesystem::path& machine_file, const std::filesystem::path& user_file,
    std::chrono::milliseconds patience = kRegistryPatience);

// A registry that lives in memory and dies with its last owner.
HX_PLATFORM_API std::shared_ptr<IRegistry> MakeMemoryRegistry();

// Something about the store that a service engineer has to know, told once.
struct RegistryReport {
    std::wstring store;      // the file
    std::wstring set_aside;  // where it was moved to; empty if it could not be moved
    std::wstring reason;     // why it could not be used
};
using RegistryReportSink = void (*)(const RegistryReport& report);
// Who is told from now on, null for nobody; reports that nobody has heard yet are told at once. The sink is
// called on any thread, must use neither the registry nor this function, and throw nothing. It is not running
// any more when this returns. Gives the one told before, null likewise.
HX_PLATFORM_API RegistryReportSink SetRegistryReportSink(RegistryReportSink sink);

}  // namespace hx
