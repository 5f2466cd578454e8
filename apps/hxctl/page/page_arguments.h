// The command line of hxctl page.
#pragma once

#include <CLI/App.hpp>
#include <functional>

#include "apps/hxctl/page/page_command.h"

namespace hxctl {

class PageArguments {
public:
    // The command leaves in `run` what is to be done. All three outlive the parsing.
    PageArguments(std::function<Outcome()>& run, const bool& json) : m_run(run), m_json(json) {}
    void Add(CLI::App& app);

private:
    std::function<Outcome()>& m_run;
    const bool& m_json;
    PageRequest m_request;
};

}  // namespace hxctl
