// Writes a module's log to a file: one for all runs of the module, or one for each. Files are UTF-8; every
// write opens the file, appends and closes it again, so that several processes may add to the same one. Made
// by MLogger; one thread at a time.
#pragma once

#include <filesystem>
#include <string>

#include "core/log/LogFiles.h"
#include "core/log/MLoggingDevice.h"
#include "platform/module/resources.h"

namespace hx {

class MLoggerFiler final : public MLoggingDevice {
public:
    // Reads the configuration below the key path, makes this run's file, and in roll mode deletes the oldest
    // ones. A file that cannot be made shows when it is written.
    MLoggerFiler(std::wstring_view module_name, std::wstring_view key_path, std::wstring_view company,
                 ModuleVersion module, const IClock& clock, const MSpecialFolderImplementation& folders);
    // The same with values of that company that others were read from: if those failed, these are not asked.
    MLoggerFiler(std::wstring_view module_name, LoggingValues values, std::wstring_view company,
                 ModuleVersion module, const IClock& clock, const MSpecialFolderImplementation& folders);

    void WriteHeader() override;
    bool Write(std::wstring_view text) override;

    // Of this run; empty if there is no folder for it.
    const std::filesystem::path& FileName() const { return m_file_name; }

private:
    void MakeFile(LoggingValues& values, const LogFiles& files);

    const std::wstring m_module_name;
    const ModuleVersion m_module;
    const IClock& m_clock;
    std::filesystem::path m_file_name;
};

}  // namespace hx
