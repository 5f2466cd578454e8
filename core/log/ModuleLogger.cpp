#include "core/log/ModuleLogger.h"

#include <atomic>
#include <cstddef>
#include <new>

namespace hx {
namespace {

constinit std::atomic<MLogger*> g_installed = nullptr;

// Never destroyed: code still logs while the statics around it go. It owns nothing that could leak.
MLogger& SilentLogger() {
    alignas(MLogger) static std::byte place[sizeof(MLogger)];
    static MLogger& logger = *new (place) MLogger();
    return logger;
}

}  // namespace

MLogger& ModuleLogger() {
    MLogger* const installed = g_installed.load();
    return installed != nullptr ? *installed : SilentLogger();
}

MLogger* SetModuleLogger(MLogger* logger) {
    return g_installed.exchange(logger);
}

std::wstring RegistryReportText(const RegistryReport& report) {
    std::wstring text = L"The registry's store " + report.store + L" cannot be used: " + report.reason;
    if (!report.set_aside.empty()) text += L"\nIt was set aside as " + report.set_aside;
    return text;
}

void LogRegistryReport(const RegistryReport& report) noexcept {
    LogRegistryReport(report, ModuleLogger());
}

void LogRegistryReport(const RegistryReport& report, MLogger& logger) noexcept {
    try {
        logger.Log({MLogSeverity::kError, "Registry", 36, "Registry", RegistryReportText(report)});
    } catch (...) {
        // Logging never raises; without memory the report is lost.
    }
}

}  // namespace hx
