#include "apps/hxctl/report/report_arguments.h"

#include <CLI/CLI.hpp>

#include "apps/hxctl/scanner/scanner_arguments.h"

namespace hxctl {

void ReportArguments::Add(CLI::App& app) {
    CLI::App* command = app.add_subcommand("report",
                                           "for whoever is to help: the values of the diagnostics page of a "
                                           "simulated scanner, versions, system, "
                                           "and the last errors of the log; needs no screen");
    AddScanner(*command, m_request.scanner, "the one that suits the page");
    auto* const state =
        command->add_option("--state", m_request.state, "of the connection: 0 disconnected, 1, 2 suspended")
            ->capture_default_str()
            ->check(CLI::Range(0, 2));
    command->add_flag("--disconnected", m_request.disconnected, "as --state 0")->excludes(state);
    command->add_option("--locale", m_request.locale, "the language of the page, as de-DE")
        ->capture_default_str();
    command->add_flag("--serials", m_request.serial_numbers,
                      "with serial numbers, which are left out otherwise, also of what was logged");
    command->callback([this] { m_run = [this] { return RunReport(m_request, m_json); }; });
}

}  // namespace hxctl
