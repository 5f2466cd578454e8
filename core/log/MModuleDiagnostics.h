// What a module starts with: its logger, its event store, and everything that reports to them. Each module
// has one static object of this class:
//
//     hx::MModuleDiagnostics g_diagnostics(L"HXScannerCtrls", hx::kLoggingKeyPath, &hx::ThisModuleVersion);
//
// Made while the module is loaded. It ends while the module is unloaded, when nothing else of it runs, or
// while the process exits, when other threads may be anywhere in it. The module's entry points tell which.
#pragma once

#include <atomic>
#include <string_view>

#include "platform/module/resources.h"

namespace hx {

class KLogger;

class MModuleDiagnostics {
public:
    // The name is a literal. With HX_EVENTS=FILE in the environment the event store is written to
    // that file at the end; with HX_EVENTS empty, to KLogger::DefaultDumpFile. Without memory nothing is
    // logged.
    MModuleDiagnostics(std::wstring_view module_name, std::wstring_view key_path,
                       ModuleVersion (*module_version)()) noexcept;
    MModuleDiagnostics(const MModuleDiagnostics&) = delete;
    MModuleDiagnostics& operator=(const MModuleDiagnostics&) = delete;
    // Takes back what is still installed of this module, and dumps the events. The logger and the event store
    // are freed only if no thread can be using them.
    ~MModuleDiagnostics();

    // Whether threads may be in the module: true before anything is handed out by which they get there, false
    // once the module can be unloaded. Any thread.
    void SetInUse(bool in_use) noexcept { m_is_in_use = in_use; }

    // Null without memory for it.
    const KLogger* Events() const;

private:
    struct Parts;

    // In memory of their own, whose lifetime is not that of this object. Constant once made.
    Parts* const m_parts;
    std::atomic<bool> m_is_in_use = false;
};

}  // namespace hx
