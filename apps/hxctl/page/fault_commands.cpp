// Failures on demand.
#include "apps/hosting/FaultText.h"
#include "apps/hxctl/page/page_host.h"
#include "apps/hxctl/page/script_command.h"
#include "apps/hxctl/scanner/desk.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "hxapi/HXApiErrors.h"

namespace hxctl {
namespace {

int32_t TimesOf(const Word& word) {
    if (word.text == "*") return -1;
    const int32_t times = NumberOf(word, "how often it fails");
    if (times < 1) throw WrongLine(word, "it fails once at least, or * for always");
    return times;
}

void Fail(PageHost& host, Words& words, Json&) {
    hx::Bstr texts[3];
    const char* const options[] = {"--chain", "--text", "--preset"};
    for (size_t i = 0; i < 3; ++i) {
        if (const auto value = TakeOption(words, options[i])) texts[i] = hx::Bstr(WideOf(*value));
    }
    CheckNoOptions(words);
    if (words.size() < 2) throw WrongLine(1, "fail OPERATION HRESULT [TIMES] and options");
    if (words.size() > 3) throw WrongLine(words[3], "a word too many");
    const hx::Bstr operation(WideOf(words[0]));
    HXSimulatorFault fault{};
    fault.operation = operation.get();
    if (!hosting::ParseResult(words[1].text, fault.result)) {
        throw WrongLine(words[1],
                        "\"" + words[1].text + "\" is no result: a name such as E_FAIL, or a number");
    }
    fault.times = words.size() > 2 ? TimesOf(words[2]) : 1;
    fault.chain_code = texts[0].get();
    fault.text = texts[1].get();
    fault.preset = texts[2].get();
    const HRESULT result = host.Simulator().InjectFault(&fault);
    if (result == HX_E_NOTFOUND) {
        throw WrongLine(words[0], "no operation \"" + words[0].text + "\": `hxctl scanner list` has them");
    }
    if (result == E_INVALIDARG) {
        throw WrongLine(words[1], NamedResult(fault.result) + " is no failure of " + words[0].text +
                                      (texts[2].get() ? ", or that is no operation of presets" : ""));
    }
    CheckCall("InjectFault", result);
}

constexpr ScriptCommand kCommands[] = {
    {"fail", "OPERATION HRESULT [TIMES] [--chain CODE] [--text TEXT] [--preset NAME]", 2, 9, &Fail},
};

}  // namespace

std::span<const ScriptCommand> FaultCommands() {
    return kCommands;
}

}  // namespace hxctl
