// The command line of hxctl screenshot.
#pragma once

#include <CLI/App.hpp>
#include <functional>

#include "apps/hxctl/screenshot/screenshot_command.h"

namespace hxctl {

class ScreenshotArguments {
public:
    // The command leaves in `run` what is to be done. All three outlive the parsing.
    ScreenshotArguments(std::function<Outcome()>& run, const bool& json) : m_run(run), m_json(json) {}
    void Add(CLI::App& app);

private:
    std::function<Outcome()>& m_run;
    const bool& m_json;
    ScreenshotRequest m_request;
};

}  // namespace hxctl
