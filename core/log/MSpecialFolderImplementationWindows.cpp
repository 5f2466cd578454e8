#include "core/log/MSpecialFolderImplementationWindows.h"

#include "core/errors/MErrorLocation.h"

namespace hx {
namespace {

std::wstring WithSeparator(std::wstring folder) {
    if (!EndsWithSeparator(folder)) folder += kPathSeparator;
    return folder;
}

// Ends with a separator.
std::wstring Below(std::wstring folder, std::wstring_view sub_path) {
    return WithSeparator(WithSeparator(std::move(folder)).append(sub_path));
}

}  // namespace

const MSpecialFolderImplementation& SpecialFolders() {
    static const MSpecialFolderImplementationWindows folders;
    return folders;
}

std::wstring MSpecialFolderImplementationWindows::GetAllUsersApplicationDataFolder() const {
    return GetSpecialFolder(SpecialFolder::kAllUsersData);
}

std::wstring MSpecialFolderImplementationWindows::GetUserApplicationDataFolder() const {
    return GetSpecialFolder(SpecialFolder::kUserData);
}

std::wstring MSpecialFolderImplementationWindows::GetProgramFilesSubfolder(std::wstring_view sub_path) const {
    return Below(GetProgramFilesFolder(), sub_path);
}

std::wstring MSpecialFolderImplementationWindows::GetProgramFilesFolder() const {
    return GetSpecialFolder(SpecialFolder::kProgramFiles);
}

std::wstring MSpecialFolderImplementationWindows::GetSharedComponentsInstallationFolder(
    std::wstring_view sub_path, bool view_32_bit) const {
    return Below(GetSpecialFolder(view_32_bit ? SpecialFolder::kCommonFiles32 : SpecialFolder::kCommonFiles),
                 sub_path);
}

std::wstring MSpecialFolderImplementationWindows::GetCommonProgramFilesFolder() const {
    return GetSpecialFolder(SpecialFolder::kCommonFiles);
}

std::wstring MSpecialFolderImplementationWindows::GetLogFolder(std::wstring_view sub_path) const {
    return Below(Below(GetAllUsersApplicationDataFolder(), sub_path), L"Logs");
}

std::wstring MSpecialFolderImplementationWindows::GetMachineLogFolder(std::wstring_view sub_path) const {
    std::wstring folder;
    const HRESULT result = FindMachineData(folder);
    if (FAILED(result)) RaiseNoFolder(SpecialFolder::kAllUsersData, result);
    return Below(Below(folder, sub_path), L"Logs");
}

std::wstring MSpecialFolderImplementationWindows::GetTempFolder() const {
    std::wstring folder;
    if (FAILED(FindTemporaryFolder(folder))) {
        static MErrorLocation location("MSpecialFolderImplementationWindows", "GetTempFolder");
        location.Set(this, 94);
        Throw(location, MakeError(location, L"GetTempPathFailure"));
    }
    return WithSeparator(std::move(folder));
}

std::wstring MSpecialFolderImplementationWindows::GetSpecialFolder(SpecialFolder folder) const {
    std::wstring path;
    const HRESULT result = FindSpecialFolder(folder, path);
    if (FAILED(result)) RaiseNoFolder(folder, result);
    return path;
}

void MSpecialFolderImplementationWindows::RaiseNoFolder(SpecialFolder folder, HRESULT result) const {
    static MErrorLocation location("MSpecialFolderImplementationWindows", "GetSpecialFolder");
    location.Set(this, 31);
    MError error = MakeError(location, L"SHGetFolderPath");
    error.AddParameter(L"folderId", static_cast<uint32_t>(folder));
    error.AddParameter(L"errorCode", static_cast<uint32_t>(result), true);
    Throw(location, error);
}

}  // namespace hx
