// The command lines of hxctl register, unregister and classes.
#pragma once

#include <CLI/App.hpp>
#include <functional>
#include <string>
#include <vector>

#include "apps/hxctl/classes/classes_command.h"

namespace hxctl {

class ClassesArguments {
public:
    // The command leaves in `run` what is to be done. All three outlive the parsing.
    ClassesArguments(std::function<Outcome()>& run, const bool& json) : m_run(run), m_json(json) {}
    void Add(CLI::App& app);

private:
    void AddRegistration(CLI::App& app, const char* name, const char* help, hx::RegistrationAction action);

    std::function<Outcome()>& m_run;
    const bool& m_json;
    std::vector<std::string> m_libraries;
    bool m_tree = false;
    bool m_all = false;
};

}  // namespace hxctl
