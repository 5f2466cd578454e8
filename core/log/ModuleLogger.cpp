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
    MLogger* const installed = g_installed.load(std::memory_order_acquire);
    return installed != nullptr ? *installed : SilentLogger();
}

MLogger* SetModuleLogger(MLogger* logger) {
    return g_installed.exchange(logger);
}

void LogRegistryReport(const RegistryReport& report) noexcept {
    try {
        std::wstring message = L"The registry's store " + report.store + L" cannot be used: " + report.reason;
        if (!report.set_aside.empty()) message += L"\nIt was set aside as " + report.set_aside;
        ModuleLogger().Log({MLogSeverity::kError, "Registry", 36, "Registry", message});
    } catch (...) {
        // Logging never raises; without memory the report is lost.
    }
}

}  // namespace hx
