// What the host does with its pages.
#include <algorithm>
#include <iterator>

#include "apps/hosting/SettingsMap.h"
#include "apps/hxctl/page/host_answer.h"
#include "apps/hxctl/page/page_host.h"
#include "apps/hxctl/page/script_command.h"
#include "platform/com/variant.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

constexpr int32_t kLongestEdge = 16384;

void AddPage(PageHost& host, Words& words, Json& answer) {
    const PageName* const row = FindPage(words[0].text);
    if (!row) throw WrongLine(words[0], NoPageText(words[0].text));
    const std::string name = words.size() > 1 ? words[1].text : words[0].text;
    answer["name"] = name;
    host.Add(name, *row);
}

void UsePage(PageHost& host, Words& words, Json&) {
    host.Use(words[0].text);
}

void CreatePage(PageHost& host, Words& /*words*/, Json&) {
    host.Create();
}

void OpenWindow(PageHost& host, Words& /*words*/, Json&) {
    host.OpenWindow();
}

void Map(PageHost& host, Words& words, Json&) {
    if (words.empty()) {
        hx::ComPtr<IHXSettingsObjectMap> map;
        const hosting::CalledLast made = hosting::MakeSettingsMap(map);
        CheckCall(made.operation, made.result);
        CheckAnswer("SetSettingsObjectMap", host.Hosted().SetSettingsObjectMap(map.get()));
        return;
    }
    if (words[0].text != "none") throw WrongLine(words[0], "nothing, or none, stands behind map");
    // It is no map.
    CheckAnswer("SetSettingsObjectMap", host.Hosted().SetSettingsObjectMap(&host.Simulator()));
}

hx::SafeArray VectorOf(VARTYPE type, ULONG count) {
    hx::SafeArray array(SafeArrayCreateVector(type, 0, count));
    if (!array) throw std::bad_alloc();
    return array;
}

// Arrays that no page can take.
struct WrongArray {
    const char* name;
    hx::SafeArray (*make)();
};
const WrongArray kWrongArrays[] = {
    {"null", [] { return hx::SafeArray(); }},
    {"empty", [] { return VectorOf(VT_VARIANT, 0); }},
    {"zero-size",
     [] {
         hx::SafeArray array = hosting::HostedPage::ArgumentsOf(L"$DEFAULT");
         array.get()->cbElements = 0;
         return array;
     }},
    {"bstr",
     [] {
         hx::SafeArray array = VectorOf(VT_BSTR, 1);
         LONG index = 0;
         if (FAILED(SafeArrayPutElement(array.get(), &index, hx::Bstr(L"$DEFAULT").get()))) {
             throw std::bad_alloc();
         }
         return array;
     }},
    {"number",
     [] {
         hx::SafeArray array = VectorOf(VT_VARIANT, 1);
         VARIANT value = hx::Variant(int32_t{1}).detach();
         LONG index = 0;
         if (FAILED(SafeArrayPutElement(array.get(), &index, &value))) throw std::bad_alloc();
         return array;
     }},
};

hx::SafeArray WrongArrayNamed(const Word& name) {
    const auto found =
        std::ranges::find_if(kWrongArrays, [&](const WrongArray& each) { return name.text == each.name; });
    if (found != std::end(kWrongArrays)) return found->make();
    std::string reason = "no array \"" + name.text + "\": there are";
    for (const WrongArray& each : kWrongArrays) reason += std::string(" ") + each.name;
    throw WrongLine(name, reason);
}

void Initialise(PageHost& host, Words& words, Json&) {
    const std::optional<Word> wrong = TakeOption(words, "--array");
    CheckNoOptions(words);
    const size_t count = wrong ? 3 : 4;
    if (words.size() < count) {
        throw WrongLine(words.empty() ? 1 : words.back().column,
                        "initialise DRIVER DEVICE FUNCTION ARGUMENT, or --array and a kind for ARGUMENT");
    }
    if (words.size() > count) throw WrongLine(words[count], "a word too many");
    hx::SafeArray arguments =
        wrong ? WrongArrayNamed(*wrong) : hosting::HostedPage::ArgumentsOf(WideOf(words[3]));
    CheckAnswer("Initialise", host.Hosted().Initialise(WideOf(words[0]), WideOf(words[1]), WideOf(words[2]),
                                                       std::move(arguments)));
}

void Resize(PageHost& host, Words& words, Json&) {
    const int32_t width = NumberOf(words[0], "the width");
    const int32_t height = NumberOf(words[1], "the height");
    for (const auto& [edge, word] : {std::pair(width, words[0]), std::pair(height, words[1])}) {
        if (edge < 0 || edge > kLongestEdge) throw WrongLine(word, "an edge has 0 to 16384 pixels");
    }
    host.Resize({width, height});
}

void Select(PageHost& host, Words& /*words*/, Json&) {
    CheckAnswer("OnSelected", host.Hosted().Select());
}

void Deselect(PageHost& host, Words& /*words*/, Json&) {
    CheckAnswer("OnDeselected", host.Hosted().Deselect());
}

void Save(PageHost& host, Words& /*words*/, Json& answer) {
    bool may_close = false;
    CheckAnswer("Save", host.Hosted().Save(may_close));
    answer["mayClose"] = may_close;
}

void ClosePage(PageHost& host, Words& /*words*/, Json&) {
    host.Hosted().Close();
}

void Arguments(PageHost& host, Words& /*words*/, Json& answer) {
    const std::optional<std::wstring> selected = host.Page().hosted.Selected();
    answer["arguments"] = selected ? Json::array({hx::ToUtf8(*selected)}) : Json();
}

constexpr ScriptCommand kCommands[] = {
    {"page", "PAGE [NAME]", 1, 2, &AddPage},
    {"use", "NAME", 1, 1, &UsePage},
    {"create", "", 0, 0, &CreatePage},
    {"window", "", 0, 0, &OpenWindow},
    {"initialise", "DRIVER DEVICE FUNCTION ARGUMENT [--array KIND]", 3, 6, &Initialise},
    {"map", "[none]", 0, 1, &Map},
    {"resize", "W H", 2, 2, &Resize},
    {"select", "", 0, 0, &Select},
    {"deselect", "", 0, 0, &Deselect},
    {"save", "", 0, 0, &Save},
    {"close", "", 0, 0, &ClosePage},
    {"arguments", "", 0, 0, &Arguments},
};

}  // namespace

std::span<const ScriptCommand> HostCommands() {
    return kCommands;
}

}  // namespace hxctl
