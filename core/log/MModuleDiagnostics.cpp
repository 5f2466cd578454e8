#include "core/log/MModuleDiagnostics.h"

#include "core/log/ModuleLogger.h"
#include "platform/registry/registry.h"
#include "platform/system/environment.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

std::optional<std::string> RequestedDumpFile() noexcept {
    try {
        return EnvironmentValue("HX_EVENTS");
    } catch (...) {
        return std::nullopt;  // without memory there will be no dump either
    }
}

}  // namespace

MModuleDiagnostics::MModuleDiagnostics(std::wstring_view module_name, std::wstring_view key_path,
                                       const ModuleVersion& module) noexcept
    : m_module_name(module_name),
      m_dump_file(RequestedDumpFile()),
      m_logger(module_name, key_path, module),
      m_adapter(m_events) {
    SetModuleLogger(&m_logger);
    SetDiagnosticsRegistry(&m_adapter);
    SetFlowLogger(&m_adapter);
    // Last: what is known of the store already is told at once.
    SetRegistryReportSink(&LogRegistryReport);
    m_events.Add(KLoggerEvent::kLogModuleAdded, {.to = module_name});
}

MModuleDiagnostics::~MModuleDiagnostics() {
    m_events.Add(KLoggerEvent::kLogModuleRemoved, {.to = m_module_name});
    if (m_dump_file) DumpEvents();
    SetRegistryReportSink(nullptr);
    SetFlowLogger(nullptr);
    SetDiagnosticsRegistry(nullptr);
    SetModuleLogger(nullptr);
}

void MModuleDiagnostics::DumpEvents() noexcept {
    try {
        if (m_dump_file->empty() ? m_events.Dump() : m_events.Dump(*m_dump_file)) return;
        const std::wstring message = L"The events cannot be written to the file \"" +
                                     FromUtf8(*m_dump_file).value_or(L"(no UTF-8)") + L"\"";
        m_logger.Log({MLogSeverity::kError, "MModuleDiagnostics", 39, "DumpEvents", message});
    } catch (...) {
        // Without memory there is no dump; the module ends all the same.
    }
}

}  // namespace hx
