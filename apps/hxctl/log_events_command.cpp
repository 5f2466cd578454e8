// hxctl log --events: what the component library's event store holds after a short session with it.
#include <filesystem>

#include "apps/hosting/HowToRegister.h"
#include "apps/hosting/SettingsObject.h"
#include "apps/hxctl/command.h"
#include "apps/hxctl/json.h"
#include "hxapi/ProfileSettingsType.h"
#include "platform/com/loader.h"
#include "platform/system/environment.h"
#include "platform/system/files.h"

namespace hxctl {
namespace {

// The object's text is read back by itself, and then one that no settings object takes.
hosting::CalledLast UseSettings() {
    hx::ComPtr<IXmlBstrSerializable> settings;
    hosting::CalledLast answer = hosting::CreateSettings(ScannerConnectionSettings, settings);
    if (FAILED(answer.result)) return answer;
    hx::Bstr text;
    answer = {"WriteXmlBstr", settings->WriteXmlBstr(text.put())};
    if (FAILED(answer.result)) return answer;
    answer = {"ReadXmlBstr", settings->ReadXmlBstr(text.get())};
    if (FAILED(answer.result)) return answer;
    const bool refused = FAILED(settings->ReadXmlBstr(hx::Bstr(L"<refused/>").get()));
    return {"ReadXmlBstr of a text that is to be refused", refused ? S_OK : E_UNEXPECTED};
}

}  // namespace

Outcome RunLogEvents(const std::string& file, bool json) {
    // To the library an empty name means its own default.
    if (file.empty()) return {kUsage, {}, "--events needs the name of a file"};
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(file, error);
    // So that the dump of another session is not taken for this one's.
    if (std::filesystem::is_regular_file(std::filesystem::symlink_status(path, error))) {
        std::filesystem::remove(path, error);
    }
    hx::SetEnvironmentValue("HX_EVENTS", path);
    const hosting::CalledLast answer = UseSettings();
    CoFreeUnusedLibraries();
    if (FAILED(answer.result)) {
        return Refused(std::string(answer.operation) + " answered " + NamedResult(answer.result) +
                       hosting::HowToRegister(answer.result));
    }
    std::string dump;
    const bool is_there = std::filesystem::is_regular_file(std::filesystem::symlink_status(path, error));
    if (!is_there || hx::ReadFile(path, dump)) return Refused(file + ": the events cannot be written");
    // Lines about the times start with "%%", those of events with "% ".
    size_t events = 0;
    for (size_t line = dump.find("\n% "); line != std::string::npos; line = dump.find("\n% ", line + 1)) {
        ++events;
    }
    if (json) return {kDone, Json{{"file", file}, {"events", events}}.dump() + "\n", {}};
    return {kDone, std::to_string(events) + " events in " + file + "\n", {}};
}

}  // namespace hxctl
