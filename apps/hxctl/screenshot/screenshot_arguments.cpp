#include "apps/hxctl/screenshot/screenshot_arguments.h"

#include <CLI/CLI.hpp>

#include "apps/hxctl/page/page_names.h"
#include "apps/hxctl/scanner/scanner_arguments.h"

namespace hxctl {

void ScreenshotArguments::Add(CLI::App& app) {
    CLI::App* command = app.add_subcommand(
        "screenshot", "the picture of a page, or of the preview, with a simulated scanner; needs no screen");
    command
        ->add_option("PAGE", m_request.page,
                     "one of " + PageNames(", ") + ", or preview: that of the field of view")
        ->required();
    command->add_option("OUT.png", m_request.file, "the picture")->required();
    AddScanner(*command, m_request.scanner, "the one that suits the page");
    AddPresetsFolder(*command, m_request.scanner);
    AddSurface(*command, m_request.scanner);
    AddValues(*command, m_request.values);
    command->add_option("--locale", m_request.locale, "the language, as de-DE")->capture_default_str();
    command->add_option("--scale", m_request.scale, "of the screen: 1.5 is 150 %")
        ->capture_default_str()
        ->check(CLI::Range(kSmallestScale, kLargestScale));
    command->add_flag("--dark", m_request.dark, "dark colours");
    command->add_option("--script", m_request.script,
                        "of a page, as `hxctl page` has it, before the picture is taken");
    command->add_option("--width", m_request.width, "of the window, at 100 %")->check(CLI::Range(1, 4096));
    command->add_option("--height", m_request.height, "the same")->check(CLI::Range(1, 4096));
    command->callback([this, command] {
        for (const char* const option : kPageOptions) {
            if (command->count(option) != 0) m_request.given.emplace_back(option);
        }
        m_run = [this] { return RunScreenshot(m_request, m_json); };
    });
}

}  // namespace hxctl
