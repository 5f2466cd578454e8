#include "apps/hxctl/registry_reports.h"

#include <iostream>
#include <vector>

#include "core/log/ModuleLogger.h"
#include "platform/module/this_module.h"
#include "platform/registry/registry.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

std::vector<hx::RegistryReport> g_reports;

// Must not use the registry, which the log's configuration is in.
void Collect(const hx::RegistryReport& report) {
    try {
        g_reports.push_back(report);
    } catch (...) {
        // Without memory the report is lost.
    }
}

}  // namespace

void TellRegistryReports() {
    // Told at once is what nobody was there to hear.
    hx::SetRegistryReportSink(hx::SetRegistryReportSink(&Collect));
    if (g_reports.empty()) return;
    hx::MLogger logger(L"HXScannerCtrls", hx::kLoggingKeyPath, hx::ThisModuleVersion());
    for (const hx::RegistryReport& report : g_reports) {
        std::cerr << "hxctl: " << hx::ToUtf8(hx::RegistryReportText(report)) << '\n';
        hx::LogRegistryReport(report, logger);
    }
    g_reports.clear();
}

}  // namespace hxctl
