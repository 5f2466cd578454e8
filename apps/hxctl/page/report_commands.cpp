// What is to be seen on a page, what its scanner API has stored, and what was called.
#include "apps/hxctl/page/control_report.h"
#include "apps/hxctl/page/page_host.h"
#include "apps/hxctl/page/script_command.h"
#include "apps/hxctl/scanner/desk.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "hxapi/IHXSimulatorPresets.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

void Show(PageHost& host, Words& words, Json& answer) {
    Json controls = Json::array();
    if (words.empty()) {
        for (const hx::ui::Control* const each : host.Dialog().Controls()) controls.push_back(Report(*each));
    } else {
        const auto id = static_cast<uint32_t>(NumberOf(words[0], "the id of a control"));
        controls.push_back(Report(host.Control(id)));
    }
    answer["controls"] = std::move(controls);
}

void Profiles(PageHost& host, Words& /*words*/, Json& answer) {
    const hx::ui::ListBox& list = host.ProfileList();
    Json& rows = answer["rows"] = Json::array();
    for (int32_t i = 0; i < list.Count(); ++i) {
        const hx::ui::RowFacts facts = list.FactsOf(i);
        rows.push_back({{"text", hx::ToUtf8(list.RowText(i))},
                        {"name", hx::ToUtf8(facts.key)},
                        {"user", facts.own},
                        {"modified", facts.marked},
                        {"selected", list.Selected() == i}});
    }
}

void Presets(PageHost& host, Words& /*words*/, Json& answer) {
    hx::Bstr driver;
    hx::Bstr device;
    hx::Bstr json;
    CheckCall("GetDevice", host.Simulator().GetDevice(driver.put(), device.put()));
    const auto stored = hx::ComPtr<IHXSimulator>(&host.Simulator()).as<IHXSimulatorPresets>();
    if (!stored) throw Impossible("the simulator does not tell what it has stored");
    CheckCall("ReadPresets", stored->ReadPresets(device.get(), json.put()));
    answer.update(Json::parse(TextOf(json)));
}

// The simulator's events came in, they did not leave; its results are those of the calls that fail.
void Calls(PageHost& host, Words& /*words*/, Json& answer) {
    hx::Bstr taken;
    CheckCall("TakeCalls", host.Simulator().TakeCalls(taken.put()));
    Json& calls = answer["calls"] = Json::array();
    for (const Json& call : Json::parse(TextOf(taken))) {
        if (call.at("on") == "events") continue;
        calls.push_back({{"on", call.at("on")}, {"op", call.at("op")}, {"args", call.at("args")}});
    }
}

void Modals(PageHost& host, Words& /*words*/, Json& answer) {
    Json& modals = answer["modals"] = Json::array();
    for (const hx::ui::Script::Modal& each : host.Dialogs().TakeModals()) {
        Json captions = Json::array();
        for (const std::wstring& caption : each.captions) captions.push_back(hx::ToUtf8(caption));
        modals.push_back({{"title", hx::ToUtf8(each.title)},
                          {"captions", std::move(captions)},
                          {"suggestion", hx::ToUtf8(each.text)},
                          {"defaultButton", hx::ToUtf8(each.default_button)},
                          {"result", ModalResultName(each.result)},
                          {"answered", each.answered}});
    }
}

void Messages(PageHost& host, Words& /*words*/, Json& answer) {
    Json& messages = answer["messages"] = Json::array();
    for (const hx::ui::Script::Box& each : host.Dialogs().TakeBoxes()) {
        messages.push_back({{"caption", hx::ToUtf8(each.caption)},
                            {"text", hx::ToUtf8(each.text)},
                            {"icon", IconName(each.icon)}});
    }
}

constexpr ScriptCommand kCommands[] = {
    {"show", "[ID]", 0, 1, &Show}, {"profiles", "", 0, 0, &Profiles}, {"presets", "", 0, 0, &Presets},
    {"calls", "", 0, 0, &Calls},   {"modals", "", 0, 0, &Modals},     {"messages", "", 0, 0, &Messages},
};

}  // namespace

std::span<const ScriptCommand> ReportCommands() {
    return kCommands;
}

}  // namespace hxctl
