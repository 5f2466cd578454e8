// The command line of hxctl report.
#pragma once

#include <CLI/App.hpp>
#include <functional>

#include "apps/hxctl/report/report_command.h"

namespace hxctl {

class ReportArguments {
public:
    // The command leaves in `run` what is to be done. All three outlive the parsing.
    ReportArguments(std::function<Outcome()>& run, const bool& json) : m_run(run), m_json(json) {}
    void Add(CLI::App& app);

private:
    std::function<Outcome()>& m_run;
    const bool& m_json;
    ReportOptions m_request;
};

}  // namespace hxctl
