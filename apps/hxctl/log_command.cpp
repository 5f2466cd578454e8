// hxctl log: the newest log of a module, where its configuration says that it is. Writes nothing, neither
// there nor into the configuration.
#include <chrono>
#include <iostream>
#include <thread>

#include "apps/hosting/report/LogRecords.h"
#include "apps/hosting/report/ModuleLog.h"
#include "apps/hxctl/command.h"
#include "apps/hxctl/json.h"
#include "apps/hxctl/registry_reports.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

namespace fs = std::filesystem;

std::string Shown(const fs::path& path, std::string text, bool json) {
    if (!json) return text;
    // A log may hold bytes of other programs.
    constexpr auto kReplace = Json::error_handler_t::replace;
    return hosting::ReadLogRecords(path, text).dump(-1, ' ', false, kReplace) + "\n";
}

// Returns when the output cannot be written any more; most often it is interrupted.
Outcome Follow(hosting::ModuleLog& log, fs::path path, bool json) {
    constexpr std::chrono::milliseconds kPause(100);
    while (true) {
        // Looked up first, so that the older file is read to its end before a newer one.
        const auto newest = log.Newest();
        const std::string text = log.ReadMore(path);
        if (!text.empty()) std::cout << Shown(path, text, json) << std::flush;
        if (!std::cout) return {};
        if (newest && *newest != path) {
            path = *newest;
        } else {
            std::this_thread::sleep_for(kPause);
        }
    }
}

}  // namespace

Outcome RunLog(const LogRequest& request, bool json) {
    const auto module = hx::FromUtf8(request.module);
    if (!module) return {kUsage, {}, "the module's name is no UTF-8"};
    hosting::ModuleLog log(*module);
    // Following may never return, and what was found in the configuration's store is part of the log.
    TellRegistryReports();
    const auto newest = log.Newest();
    if (!newest) {
        return Refused("no log of module " + request.module + " in the folder \"" + hx::ToUtf8(log.Folder()) +
                       "\"");
    }
    if (request.follow) return Follow(log, *newest, json);
    return {kDone, Shown(*newest, log.ReadMore(*newest), json), {}};
}

}  // namespace hxctl
