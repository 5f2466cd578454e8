// Where modules of the suite find the well-known folders. Any thread. Every operation raises an MException if
// the system has no such folder. Folders that are not said to end with a separator have none, except for the
// system's root.
#pragma once

#include <string>
#include <string_view>

namespace hx {

class MSpecialFolderImplementation {
public:
    virtual std::wstring GetAllUsersApplicationDataFolder() const = 0;
    virtual std::wstring GetUserApplicationDataFolder() const = 0;
    // Below the folder of programs; ends with a separator.
    virtual std::wstring GetProgramFilesSubfolder(std::wstring_view sub_path) const = 0;
    virtual std::wstring GetProgramFilesFolder() const = 0;
    // Below the folder of the components that programs share, of the 32-bit ones if asked; ends with a
    // separator.
    virtual std::wstring GetSharedComponentsInstallationFolder(std::wstring_view sub_path,
                                                               bool view_32_bit) const = 0;
    virtual std::wstring GetCommonProgramFilesFolder() const = 0;
    // "Logs" below the all-users folder and the sub-path; ends with a separator.
    virtual std::wstring GetLogFolder(std::wstring_view sub_path) const = 0;
    // Exists; ends with a separator.
    virtual std::wstring GetTempFolder() const = 0;

protected:
    ~MSpecialFolderImplementation() = default;
};

// The machine's, for as long as the module lives.
const MSpecialFolderImplementation& SpecialFolders();

}  // namespace hx
