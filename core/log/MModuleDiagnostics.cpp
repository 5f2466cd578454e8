#include "core/log/MModuleDiagnostics.h"

#include <new>
#include <optional>
#include <string>

#include "core/log/MKLoggerAdapter.h"
#include "core/log/ModuleLogger.h"
#include "platform/registry/registry.h"
#include "platform/system/environment.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

// What the function gives, or nothing without the memory for it: the module is loaded all the same.
template <class T>
T ValueOrNone(T (*value)()) noexcept {
    try {
        return value();
    } catch (...) {
        return {};
    }
}

std::optional<std::string> RequestedDumpFile() {
    return EnvironmentValue("HX_EVENTS");
}

// What somebody else has installed since stays.
template <class T>
void TakeBack(T (*install)(T), T own) {
    const T installed = install(nullptr);
    if (installed != own) install(installed);
}

}  // namespace

struct MModuleDiagnostics::Parts {
    Parts(std::wstring_view name, std::wstring_view key_path, ModuleVersion (*module_version)()) noexcept
        : module_name(name),
          dump_file(ValueOrNone(&RequestedDumpFile)),
          logger(name, key_path, ValueOrNone(module_version)),
          adapter(events) {}

    void DumpEvents() noexcept;

    const std::wstring_view module_name;
    const std::optional<std::string> dump_file;
    MLogger logger;
    KLogger events;
    MKLoggerAdapter adapter;
};

void MModuleDiagnostics::Parts::DumpEvents() noexcept {
    try {
        if (dump_file->empty() ? events.Dump() : events.Dump(*dump_file)) return;
        const std::wstring message = L"The events cannot be written to the file \"" +
                                     FromUtf8(*dump_file).value_or(L"(no UTF-8)") + L"\"";
        logger.Log({MLogSeverity::kError, "MModuleDiagnostics", 39, "DumpEvents", message});
    } catch (...) {
        // Without memory there is no dump; the module ends all the same.
    }
}

MModuleDiagnostics::MModuleDiagnostics(std::wstring_view module_name, std::wstring_view key_path,
                                       ModuleVersion (*module_version)()) noexcept
    : m_parts(new (std::nothrow) Parts(module_name, key_path, module_version)) {
    if (m_parts == nullptr) return;
    SetModuleLogger(&m_parts->logger);
    SetDiagnosticsRegistry(&m_parts->adapter);
    SetFlowLogger(&m_parts->adapter);
    // Last: what is known of the store already is told at once.
    SetRegistryReportSink(&LogRegistryReport);
    m_parts->events.Add(KLoggerEvent::kLogModuleAdded, {.to = module_name});
}

MModuleDiagnostics::~MModuleDiagnostics() {
    if (m_parts == nullptr) return;
    m_parts->events.Add(KLoggerEvent::kLogModuleRemoved, {.to = m_parts->module_name});
    if (m_parts->dump_file) m_parts->DumpEvents();
    TakeBack<RegistryReportSink>(&SetRegistryReportSink, &LogRegistryReport);
    TakeBack<MFlowLoggerImplementation*>(&SetFlowLogger, &m_parts->adapter);
    TakeBack<MDiagnosticsRegistryImplementation*>(&SetDiagnosticsRegistry, &m_parts->adapter);
    TakeBack(&SetModuleLogger, &m_parts->logger);
    // Asked last: whoever comes in from now on finds nothing installed.
    if (!m_is_in_use) delete m_parts;
}

const KLogger* MModuleDiagnostics::Events() const {
    return m_parts != nullptr ? &m_parts->events : nullptr;
}

}  // namespace hx
