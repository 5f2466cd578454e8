#include "apps/hxctl/registry_reports.h"

#include <iostream>
#include <mutex>
#include <vector>

#include "core/log/ModuleLogger.h"
#include "platform/module/this_module.h"
#include "platform/registry/registry.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

struct Reports {
    std::mutex mutex;
    std::vector<hx::RegistryReport> reports;
};

// Never destroyed: the registry is still used while the process exits.
Reports& Unlogged() {
    static Reports& unlogged = *new Reports;
    return unlogged;
}

// Must not use the registry, which the log's configuration is in.
void Tell(const hx::RegistryReport& report) {
    try {
        std::cerr << "hxctl: " << hx::ToUtf8(hx::RegistryReportText(report)) << '\n';
        const std::lock_guard guard(Unlogged().mutex);
        Unlogged().reports.push_back(report);
    } catch (...) {
        // Without memory the report is lost.
    }
}

}  // namespace

void ListenForRegistryReports() {
    hx::SetRegistryReportSink(&Tell);
}

void LogRegistryReports() {
    std::vector<hx::RegistryReport> reports;
    {
        const std::lock_guard guard(Unlogged().mutex);
        reports.swap(Unlogged().reports);
    }
    if (reports.empty()) return;
    hx::MLogger logger(L"HXScannerCtrls", hx::kLoggingKeyPath, hx::ThisModuleVersion());
    for (const hx::RegistryReport& report : reports) hx::LogRegistryReport(report, logger);
}

}  // namespace hxctl
