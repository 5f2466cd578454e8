#include "apps/hxctl/page/page_arguments.h"

#include <CLI/CLI.hpp>

#include "apps/hxctl/page/page_names.h"

namespace hxctl {

void PageArguments::Add(CLI::App& app) {
    CLI::App* command = app.add_subcommand(
        "page", "a page in a scripted host, with a simulated scanner (docs/scripting.md); needs no screen");
    command->add_option("PAGE", m_request.page, "one of " + PageNames(", "))->required();
    command
        ->add_option("--script", m_request.script,
                     "a command a line, each answered with a line of JSON; - is standard input")
        ->required();
    command->add_flag("--bare", m_request.bare, "the script says `create` and `window` itself");
    command->add_option("--locale", m_request.locale, "the language, as de-DE")->capture_default_str();
    command->callback([this] { m_run = [this] { return RunPage(m_request, m_json); }; });
}

}  // namespace hxctl
