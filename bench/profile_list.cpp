// The list of profiles with very many of them, on the renderer without a screen.
#include <algorithm>
#include <random>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "controls/presets/PresetsReference.h"
#include "controls/profiles/CProfileListBox.h"
#include "platform/module/resources.h"
#include "platform/system/case_fold.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless/headless_renderer.h"

namespace hx::bench {
namespace {

constexpr size_t kCount = 10'000;
constexpr wchar_t kScript[] =
    L"1 DIALOGEX 0, 0, 120, 200\n"
    L"STYLE WS_POPUP | WS_CAPTION\n"
    L"FONT 8, \"MS Shell Dlg\"\n"
    L"BEGIN\n"
    L"    LISTBOX 6000, 4, 4, 100, 190, LBS_OWNERDRAWFIXED | WS_TABSTOP\n"
    L"END\n";

class Page final : public ui::Dialog, public ICurrentPresetHandler {
public:
    Page() {
        ResourceError error;
        const auto resources = ReadResourceScript(kScript, error);
        Expect(resources.has_value(), "HX", "a script");
        Bind(6000, list);
        list.SetHandler(this);
        Expect(!Create(MakeResourceModule(L"", *resources), 1, nullptr), "HX", "a dialog");
        Show(true);
    }
    ~Page() override { Destroy(); }

    std::wstring GetCurrentPresetName() override { return L"Scan of part 77"; }
    bool IsModified() override { return true; }
    void RenamePreset() override {}
    void SaveAsPreset() override {}
    void DiscardChanges() override {}
    void DeletePreset() override {}

    CProfileListBox list;
};

// In no order.
std::vector<std::wstring> ShuffledNames() {
    std::vector<std::wstring> names;
    for (size_t i = 0; i < kCount; ++i) names.push_back(L"Scan of part " + std::to_wstring(i));
    std::ranges::shuffle(names, std::mt19937(1));
    return names;
}

struct Rival {
    std::string what;
    std::function<void()> ours;
    std::string name;
    std::function<void()> theirs;
    double most;  // seconds; 0 for none
};

}  // namespace

void CompareProfileLists(Benchmark& benchmark) {
    const auto before = ui::SetRenderer(ui::HeadlessRenderer::Make());
    {
        PresetsReference presets;
        const std::vector<std::wstring> names = ShuffledNames();
        for (const std::wstring& name : names) presets->SetPreset(name, nullptr);
        Page page;
        page.list.Refill();
        Expect(page.list.Count() == static_cast<int32_t>(kCount), "HX", "all profiles");
        std::vector<std::wstring> sorted;
        bool modified = false;
        size_t next = 0;
        const auto another = [&]() -> const std::wstring& { return names[next = (next + 7919) % kCount]; };
        const auto sort = [&] {
            sorted = names;
            std::ranges::sort(sorted);
        };
        sort();
        const auto move = [&] {
            const auto place = std::ranges::lower_bound(sorted, another());
            std::wstring name = std::move(*place);
            const auto target = sorted.erase(place);
            sorted.insert(target, std::move(name));
        };
        const auto walk = [&] {
            const std::wstring& name = another();
            const auto same = [&](const std::wstring& other) { return EqualsWithoutCase(name, other); };
            Expect(std::ranges::any_of(sorted, same), "walk", "a name");
        };
        const Rival rivals[] = {
            {"refill", [&] { page.list.Refill(); }, "std::sort of the names", sort, 50e-3},
            {"mark one row", [&] { page.list.MarkModified(another(), modified = !modified); },
             "erase and insert of one name", move, 1e-3},
            {"select by name", [&] { Expect(page.list.SelectByName(another()) >= 0, "HX", "a profile"); },
             "a walk along the names", walk, 0},
        };
        Table table("Profile list",
                    "A list of 10,000 profiles, with the renderer that has no screen. Names are sorted and "
                    "found without regard to case, and by std::sort to the letter.",
                    {"What", "HX takes", "Beside", "It takes", "HX / it", "At most", "Met"});
        for (const Rival& rival : rivals) {
            const auto nothing = [] {};
            const std::vector<double> medians = Compete(
                {{"HX", nothing, rival.ours}, {rival.name, nothing, rival.theirs}}, benchmark.HowMuch());
            table.Add({rival.what, FormatTime(medians[0]), rival.name, FormatTime(medians[1]),
                       FormatNumber(medians[0] / medians[1], 2),
                       rival.most > 0 ? FormatTime(rival.most) : "-",
                       rival.most > 0 ? (medians[0] <= rival.most ? "yes" : "no") : "-"});
        }
        benchmark.report.Add(table.Markdown());
    }
    ui::SetRenderer(before);
}

}  // namespace hx::bench
