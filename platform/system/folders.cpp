#include "platform/system/folders.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <optional>
#include <vector>

#include "platform/system/environment.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> Home() {
    if (const auto home = EnvironmentValue("HOME"); home && home->starts_with('/')) return *home;
    std::vector<char> texts(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) != 0 || found == nullptr) return {};
    return entry.pw_dir;
}

// A folder that the user may have moved: a relative one does not count.
std::optional<fs::path> OfUser(const char* variable, const char* below_home) {
    if (const auto moved = EnvironmentValue(variable); moved && moved->starts_with('/')) return *moved;
    auto home = Home();
    if (home) *home /= below_home;
    return home;
}

constexpr const char* kMachine = "/var/lib";

bool IsWritable(const fs::path& folder) {
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

bool IsGiven(const std::optional<std::string>& variable) {
    return variable && !variable->empty();
}

std::optional<fs::path> MachineData() {
    const auto given = EnvironmentValue("HX_DATA");
    if (!IsGiven(given)) return kMachine;
    std::error_code error;
    const fs::path folder = fs::absolute(*given, error);
    return error ? std::nullopt : std::optional(folder);
}

std::optional<fs::path> AllUsersData() {
    if (IsGiven(EnvironmentValue("HX_DATA")) || IsWritable(kMachine)) return MachineData();
    return OfUser("XDG_STATE_HOME", ".local/state");
}

std::optional<fs::path> UserData() {
    return OfUser("XDG_DATA_HOME", ".local/share");
}

struct FolderRow {
    SpecialFolder folder;
    std::optional<fs::path> (*find)();
};

constexpr FolderRow kFolders[] = {
    {SpecialFolder::kAllUsersData, &AllUsersData},
    {SpecialFolder::kUserData, &UserData},
    {SpecialFolder::kProgramFiles, []() -> std::optional<fs::path> { return "/opt"; }},
    {SpecialFolder::kCommonFiles, []() -> std::optional<fs::path> { return "/usr/lib"; }},
    {SpecialFolder::kCommonFiles32, []() -> std::optional<fs::path> { return "/usr/lib32"; }},
};

HRESULT AsText(const fs::path& found, std::wstring& path) {
    auto text = FromUtf8(found.lexically_normal().native());
    if (!text) return E_FAIL;
    if (text->size() > 1 && EndsWithSeparator(*text)) text->pop_back();
    path = std::move(*text);
    return S_OK;
}

}  // namespace

HRESULT FindSpecialFolder(SpecialFolder folder, std::wstring& path) {
    for (const FolderRow& row : kFolders) {
        if (row.folder != folder) continue;
        const auto found = row.find();
        return found ? AsText(*found, path) : E_FAIL;
    }
    return E_INVALIDARG;
}

HRESULT FindMachineData(std::wstring& path) {
    const auto found = MachineData();
    return found ? AsText(*found, path) : E_FAIL;
}

HRESULT FindTemporaryFolder(std::wstring& path) {
    std::error_code error;
    const fs::path found = fs::temp_directory_path(error);
    return error ? E_FAIL : AsText(found, path);
}

bool MayWriteIn(const fs::path& folder) {
    fs::path there = folder;
    std::error_code error;
    while (!fs::exists(there, error) && there.has_relative_path()) there = there.parent_path();
    return IsWritable(there);
}

FileError MakeFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (!error) return {};
    return {error, folder};
}

}  // namespace hx
