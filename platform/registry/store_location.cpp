#include "platform/registry/store_location.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace hx {
namespace {

constexpr char kMachineFolder[] = "/var/lib/orvel-hx";
constexpr char kUserFolder[] = "orvel-hx";
constexpr char kMachineFile[] = "machine.registry";
constexpr char kUserFile[] = "user.registry";

std::filesystem::path PathFromEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

std::filesystem::path Home() {
    std::filesystem::path home = PathFromEnvironment("HOME");
    if (home.is_absolute()) return home;
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found);
    // Without a home there is no such file, and none can be made.
    return found && found->pw_dir ? found->pw_dir : "/nonexistent";
}

std::filesystem::path DataHome() {
    // One that is not absolute counts for nothing.
    const std::filesystem::path folder = PathFromEnvironment("XDG_DATA_HOME");
    return folder.is_absolute() ? folder : Home() / ".local/share";
}

}  // namespace

StoreLocation LocateStores() {
    const std::filesystem::path both = PathFromEnvironment("HX_REGISTRY");
    if (both.empty()) {
        return {std::filesystem::path(kMachineFolder) / kMachineFile, DataHome() / kUserFolder / kUserFile};
    }
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::absolute(both, error);
    return {folder / kMachineFile, folder / kUserFile};
}

}  // namespace hx
