#include "apps/hxctl/page/page_command.h"

#include <fstream>
#include <iostream>

#include "apps/hxctl/renderer_in_use.h"
#include "apps/hxctl/scanner/desk.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "platform/com/loader.h"
#include "platform/system/locale_data.h"
#include "platform/ui/headless/headless_renderer.h"

namespace hxctl {

std::string LineOf(const Json& answer) {
    return answer.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::shared_ptr<std::istream> OpenScript(const std::string& file) {
    if (file == "-") return {std::shared_ptr<void>(), &std::cin};
    const auto script = std::make_shared<std::ifstream>(file, std::ios::binary);
    std::error_code error;
    if (!*script || std::filesystem::is_directory(file, error)) {
        throw FailedCall(file + ": cannot be read");
    }
    return script;
}

std::filesystem::path FolderOf(const std::string& script) {
    return script == "-" ? std::filesystem::path() : std::filesystem::path(script).parent_path();
}

Outcome RunPage(const PageRequest& request, bool json) {
    const PageName* const page = FindPage(request.page);
    if (!page) return {kUsage, {}, NoPageText(request.page)};
    if (!hx::LcidOf(request.locale)) return {kUsage, {}, "no locale \"" + request.locale + "\""};
    Json answers = Json::array();
    const auto tell = [&](const Json& answer) {
        if (json) {
            answers.push_back(answer);
        } else {
            std::cout << LineOf(answer) << std::flush;
        }
    };
    Outcome outcome;
    try {
        const auto script = OpenScript(request.script);
        const RendererInUse in_use(hx::ui::HeadlessRenderer::Make());
        ScannerRequest scanner;
        scanner.model = page->model;
        Desk desk(scanner);
        desk.Calls();
        PageHost host(hx::ComPtr<IHXSimulator>(&desk.Simulator()), request.locale, request.bare);
        host.SetFolder(FolderOf(request.script));
        host.Add("main", *page);
        const ScriptTally tally = RunScript(host, *script, tell);
        if (tally.failed != 0) outcome = Refused(tally.Text());
    } catch (const FailedCall& failure) {
        outcome = Refused(failure.what());
    }
    CoFreeUnusedLibraries();
    if (json) outcome.output = LineOf(answers);
    return outcome;
}

}  // namespace hxctl
