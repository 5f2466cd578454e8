#include "apps/hxctl/classes/classes_arguments.h"

#include <CLI/CLI.hpp>

namespace hxctl {

using hx::RegistrationAction;

void ClassesArguments::Add(CLI::App& app) {
    AddRegistration(app, "register", "enters component classes into the registry, for all users",
                    RegistrationAction::kRegister);
    AddRegistration(app, "unregister", "takes component classes out of the registry again",
                    RegistrationAction::kUnregister);
    CLI::App* classes = app.add_subcommand(
        "classes", "the component classes: where each lies, who says so, and whether it can be created");
    auto* const tree = classes->add_flag("--tree", m_tree,
                                         "the registry's keys of this installation's classes, as they are");
    classes->add_flag("--all", m_all, "the keys of all classes")->needs(tree);
    classes->callback(
        [this] { m_run = [this] { return m_tree ? RunClassTree(m_all, m_json) : RunClasses(m_json); }; });
}

void ClassesArguments::AddRegistration(CLI::App& app, const char* name, const char* help,
                                       RegistrationAction action) {
    CLI::App* command = app.add_subcommand(name, help);
    command
        ->add_option("--library", m_libraries,
                     "a component library; left out: all that belong to this installation")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->type_name("FILE");
    command->callback(
        [this, action] { m_run = [this, action] { return RunRegistration(action, m_libraries, m_json); }; });
}

}  // namespace hxctl
