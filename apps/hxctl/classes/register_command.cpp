// hxctl register, unregister.
#include "apps/hxctl/classes/classes_command.h"
#include "apps/hxctl/json.h"
#include "apps/hxctl/registry_reports.h"
#include "platform/system/utf8.h"

namespace hxctl {

Outcome RunRegistration(hx::RegistrationAction action, const std::vector<std::string>& libraries, bool json) {
    std::vector<std::wstring> paths;
    for (const std::string& library : libraries) {
        auto path = hx::FromUtf8(library);
        if (!path) return {kUsage, {}, "a library's name is no UTF-8"};
        paths.push_back(*std::move(path));
    }
    if (paths.empty()) paths = hosting::ComponentLibraries();

    // Told here rather than in the log of the first library that is loaded.
    hx::Registry()->OpenKey(hx::RegistryRoot::kClassesRoot, L"", hx::RegistryAccess::kReadWrite);
    TellRegistryReports();

    const char* const done = action == hx::RegistrationAction::kRegister ? "registered " : "unregistered ";
    Outcome outcome;
    Json list = Json::array();
    for (const std::wstring& path : paths) {
        const hosting::RegistrationAnswer answer = hosting::RunRegistration(action, path);
        const std::string library = hx::ToUtf8(path);
        const std::string reason = hx::ToUtf8(answer.reason);
        if (json) {
            list.push_back({{"library", library},
                            {"result", NamedResult(answer.result)},
                            {"reason", reason.empty() ? Json() : Json(reason)}});
        } else if (SUCCEEDED(answer.result)) {
            outcome.output += done + library + "\n";
        }
        if (SUCCEEDED(answer.result)) continue;
        outcome.reason += (outcome.reason.empty() ? "" : "\nhxctl: ") + reason;
        outcome.exit = kRefused;
    }
    if (json) outcome.output = list.dump(2) + "\n";
    return outcome;
}

}  // namespace hxctl
