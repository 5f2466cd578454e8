#include "apps/hxctl/page/page_command.h"

#include <fstream>
#include <iostream>

#include "apps/hxctl/page/script_command.h"
#include "apps/hxctl/renderer_in_use.h"
#include "apps/hxctl/scanner/desk.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "platform/system/locale_data.h"
#include "platform/ui/headless/headless_renderer.h"

namespace hxctl {

std::string LineOf(const Json& answer) {
    return answer.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Outcome RunScriptFile(PageHost& host, const std::string& page, const std::string& file,
                      const std::function<void(const Json&)>& tell) {
    std::ifstream opened;
    if (file != "-") {
        opened.open(file, std::ios::binary);
        // A folder can be opened, too.
        if (!opened || opened.peek() == std::ifstream::traits_type::eof()) {
            if (!opened.eof()) return Refused(file + ": cannot be read");
            opened.clear();
        }
    }
    std::istream& script = file == "-" ? std::cin : opened;
    try {
        host.Add("main", *FindPage(page));
    } catch (const Impossible& impossible) {
        return Refused(impossible.what());
    }
    const ScriptTally tally = RunScript(host, script, tell);
    if (tally.failed == 0) return {};
    return Refused(std::to_string(tally.failed) + " of " + std::to_string(tally.lines) +
                   " lines of the script failed");
}

Outcome RunPage(const PageRequest& request, bool json) {
    if (!FindPage(request.page)) return {kUsage, {}, NoPageText(request.page)};
    if (!hx::LcidOf(request.locale)) return {kUsage, {}, "no locale \"" + request.locale + "\""};
    const RendererInUse in_use(hx::ui::HeadlessRenderer::Make());
    Json answers = Json::array();
    Outcome outcome;
    try {
        Desk desk(ScannerRequest{});
        PageHost host(hx::ComPtr<IHXSimulator>(&desk.Simulator()), request.locale, request.bare);
        outcome = RunScriptFile(host, request.page, request.script, [&](const Json& answer) {
            if (json) {
                answers.push_back(answer);
            } else {
                std::cout << LineOf(answer) << std::flush;
            }
        });
    } catch (const FailedCall& failure) {
        outcome = Refused(failure.what());
    }
    if (json) outcome.output = LineOf(answers);
    return outcome;
}

}  // namespace hxctl
