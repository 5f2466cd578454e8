// What a module starts with: its logger, its event store, and everything that reports to them. Each module
// has one static object of this class:
//
//     const hx::MModuleDiagnostics g_diagnostics(L"HXScannerCtrls", hx::kLoggingKeyPath, {...});
//
// Made and destroyed while the module is loaded and unloaded, when nothing else of it runs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/log/MKLoggerAdapter.h"
#include "core/log/MLogger.h"

namespace hx {

class MModuleDiagnostics {
public:
    // The name is a literal. With HX_EVENTS=FILE in the environment the event store is written to
    // that file at the end; with HX_EVENTS empty, to KLogger::DefaultDumpFile.
    MModuleDiagnostics(std::wstring_view module_name, std::wstring_view key_path,
                       const ModuleVersion& module) noexcept;
    MModuleDiagnostics(const MModuleDiagnostics&) = delete;
    MModuleDiagnostics& operator=(const MModuleDiagnostics&) = delete;
    ~MModuleDiagnostics();

    const KLogger& Events() const { return m_events; }

private:
    void DumpEvents() noexcept;

    const std::wstring_view m_module_name;
    std::optional<std::string> m_dump_file;
    MLogger m_logger;
    KLogger m_events;
    MKLoggerAdapter m_adapter;
};

}  // namespace hx
