// hxctl classes: what the loader finds.
#include <algorithm>
#include <array>
#include <map>

#include "apps/hxctl/classes/classes_command.h"
#include "apps/hxctl/json.h"
#include "apps/hxctl/registry_reports.h"
#include "platform/com/loader.h"
#include "platform/system/one_line.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using Line = std::array<std::string, 6>;

std::string Shown(const std::wstring& text) {
    const std::string shown = hx::ToUtf8(hx::OneLine(text));
    return shown.empty() ? "-" : shown;
}

// Columns as wide as they have to be.
std::string Table(const std::vector<Line>& lines) {
    std::string table;
    for (const Line& line : lines) {
        for (size_t i = 0; i < line.size(); ++i) {
            table += line[i];
            if (i + 1 == line.size()) continue;
            size_t width = 0;
            for (const Line& other : lines) width = std::max(width, other[i].size());
            table.append(width - line[i].size() + 2, ' ');
        }
        table += '\n';
    }
    return table;
}

Json ToJson(const hx::ClassEntry& entry, const std::string& problem) {
    const auto text = [](const std::wstring& value) {
        return value.empty() ? Json() : Json(hx::ToUtf8(value));
    };
    return {{"clsid", hx::ToUtf8(hx::GuidToText(entry.clsid))},
            {"progId", text(entry.prog_id)},
            {"versionIndependentProgId", text(entry.version_independent_prog_id)},
            {"description", text(entry.description)},
            {"threadingModel", text(entry.threading_model)},
            {"library", text(entry.library)},
            {"from", entry.is_registered ? "registry" : "table"},
            {"available", problem.empty()},
            {"problem", problem.empty() ? Json() : Json(problem)}};
}

void AddReason(Outcome& outcome, const std::string& reason) {
    outcome.reason += (outcome.reason.empty() ? "" : "\nhxctl: ") + reason;
    outcome.exit = kRefused;
}

}  // namespace

Outcome RunClasses(bool json) {
    Outcome outcome;
    std::vector<std::wstring> names;
    const hx::RegistryResult read = hx::Registry()->ListKeys(hx::RegistryRoot::kClassesRoot, L"", names);
    // Before a library is loaded, in whose log it would be.
    TellRegistryReports();
    const std::string fault = hx::ToUtf8(hosting::StoreFaultText(read));
    if (!fault.empty()) AddReason(outcome, fault);

    std::vector<hx::ClassEntry> entries = hx::ClassLookup()->All();
    std::ranges::stable_sort(entries, {}, &hx::ClassEntry::library);
    std::map<std::wstring, std::string> problems;  // by library; empty if there is none
    Json list = Json::array();
    std::vector<Line> lines{{"PROGID", "FROM", "AVAILABLE", "THREADING", "LIBRARY", "DESCRIPTION"}};
    for (const hx::ClassEntry& entry : entries) {
        const auto [place, is_new] = problems.try_emplace(entry.library);
        std::string& problem = place->second;
        if (is_new) problem = hx::ToUtf8(hosting::CheckLibrary(entry.library).reason);
        if (is_new && !problem.empty()) AddReason(outcome, problem);
        list.push_back(ToJson(entry, problem));
        lines.push_back(
            {entry.prog_id.empty() ? hx::ToUtf8(hx::GuidToText(entry.clsid)) : Shown(entry.prog_id),
             entry.is_registered ? "registry" : "table", problem.empty() ? "yes" : "no",
             Shown(entry.threading_model), Shown(entry.library), Shown(entry.description)});
    }
    outcome.output = json ? list.dump(2) + "\n" : Table(lines);
    return outcome;
}

}  // namespace hxctl
