// The logger of the module that this code is in. Installed by the module's start; a silent one before that
// and after the module's end, so that any code may log at any time. Any thread.
#pragma once

#include "core/log/MLogger.h"
#include "platform/registry/registry.h"

namespace hx {

MLogger& ModuleLogger();

// Installs `logger`, which the caller keeps alive until it is replaced; null: the silent one. Gives the one
// installed before, null likewise.
MLogger* SetModuleLogger(MLogger* logger);

// That the registry's store could not be used, for people. Throws std::bad_alloc.
std::wstring RegistryReportText(const RegistryReport& report);

// Logs it. The one without a logger is to be installed with SetRegistryReportSink.
void LogRegistryReport(const RegistryReport& report, MLogger& logger) noexcept;
void LogRegistryReport(const RegistryReport& report) noexcept;

}  // namespace hx
