// The well-known folders as the system tells them. Any thread.
#pragma once

#include "core/log/MSpecialFolderImplementation.h"
#include "platform/system/folders.h"

namespace hx {

class MSpecialFolderImplementationWindows final : public MSpecialFolderImplementation {
public:
    std::wstring GetAllUsersApplicationDataFolder() const override;
    std::wstring GetUserApplicationDataFolder() const override;
    std::wstring GetProgramFilesSubfolder(std::wstring_view sub_path) const override;
    std::wstring GetProgramFilesFolder() const override;
    std::wstring GetSharedComponentsInstallationFolder(std::wstring_view sub_path,
                                                       bool view_32_bit) const override;
    std::wstring GetCommonProgramFilesFolder() const override;
    std::wstring GetLogFolder(std::wstring_view sub_path) const override;
    // Raises GetTempPathFailure.
    std::wstring GetTempFolder() const override;

    // GetLogFolder as the machine has it: where its users' logs belong if they may be written there.
    std::wstring GetMachineLogFolder(std::wstring_view sub_path) const;

    // Every folder but the temporary one. Raises SHGetFolderPath with "folderId" and "errorCode".
    std::wstring GetSpecialFolder(SpecialFolder folder) const;

private:
    [[noreturn]] void RaiseNoFolder(SpecialFolder folder, HRESULT result) const;
};

}  // namespace hx
