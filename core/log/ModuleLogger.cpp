#include "core/log/ModuleLogger.h"

#include <atomic>

#include "platform/system/never_destroyed.h"

namespace hx {
namespace {

constinit std::atomic<MLogger*> g_installed = nullptr;

// Code still logs while the statics around it go.
MLogger& SilentLogger() {
    static NeverDestroyed<MLogger> logger;
    return *logger;
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
