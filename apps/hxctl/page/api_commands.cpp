// The scanner API that a page is given, and its connection.
#include <algorithm>

#include "apps/hosting/SettingsMap.h"
#include "apps/hxctl/page/host_answer.h"
#include "apps/hxctl/page/page_host.h"
#include "apps/hxctl/page/script_command.h"
#include "apps/hxctl/scanner/desk.h"
#include "apps/hxctl/scanner/failed_call.h"

namespace hxctl {
namespace {

bool IsNumber(const Word& word) {
    return !word.text.empty() && std::ranges::all_of(word.text, [](char digit) {
        return (digit >= '0' && digit <= '9') || digit == '-';
    });
}

// A number alone is the state.
void GiveApi(PageHost& host, Words& words, Json& answer) {
    if (words.size() == 1 && words[0].text == "none") {
        // It is no scanner API.
        CheckAnswer("SetHXApi", host.Hosted().SetApi(hx::Make<hosting::SettingsMap>(nullptr).get()));
        return;
    }
    if (words.size() == 1 && IsNumber(words[0])) words.insert(words.begin(), Word{});
    const int32_t state = words.size() > 1 ? NumberOf(words[1], "the state") : 0;
    const auto simulator = host.SimulatorOf(words.empty() ? std::string() : words[0].text);
    hosting::HostedPage& page = host.Hosted();
    CheckCall("SetConnectionState", simulator->SetConnectionState(state, FALSE));
    hx::Bstr texts[3];
    CheckCall("GetModel", simulator->GetModel(texts[0].put()));
    CheckCall("GetDevice", simulator->GetDevice(texts[1].put(), texts[2].put()));
    answer["model"] = TextOf(texts[0]);
    answer["driver"] = TextOf(texts[1]);
    answer["device"] = TextOf(texts[2]);
    CheckAnswer("SetHXApi", page.SetApi(simulator.get()));
    host.Page().simulator = simulator;
}

void SetState(PageHost& host, Words& words, Json&) {
    CheckCall("SetConnectionState",
              host.Simulator().SetConnectionState(NumberOf(words[0], "the state"), FALSE));
}

void Connection(PageHost& host, Words& words, Json&) {
    CheckCall("SetConnectionState",
              host.Simulator().SetConnectionState(NumberOf(words[0], "the state"), TRUE));
    host.WaitForEvents();
}

void Plug(PageHost& host, Words& /*words*/, Json&) {
    CheckCall("Connect", host.Simulator().Connect());
    host.WaitForEvents();
}

void Unplug(PageHost& host, Words& /*words*/, Json&) {
    CheckCall("Disconnect", host.Simulator().Disconnect());
    host.WaitForEvents();
}

void Properties(PageHost& host, Words& words, Json&) {
    IHXSimulator& simulator = host.Simulator();
    if (!words[0].quoted && words[0].text == "none") {
        return CheckCall("SetProperties", simulator.SetProperties(nullptr));
    }
    if (words[0].text == "-") throw WrongLine(words[0], "the properties come from a file");
    ReportProperties(simulator, host.FileNamed(words[0].text));
}

constexpr ScriptCommand kCommands[] = {
    {"api", "[MODEL] [STATE] | none", 0, 2, &GiveApi},
    {"state", "N", 1, 1, &SetState},
    {"connection", "N", 1, 1, &Connection},
    {"properties", "FILE | none", 1, 1, &Properties},
    {"plug", "", 0, 0, &Plug},
    {"unplug", "", 0, 0, &Unplug},
};

}  // namespace

std::span<const ScriptCommand> ApiCommands() {
    return kCommands;
}

}  // namespace hxctl
