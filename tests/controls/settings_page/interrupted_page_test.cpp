// A settings page that is left, or whose window goes, in the middle of each call that it makes.
#include "controls/handheld/CHandheldMeasSettingsDlg.h"
#include "controls/measurement/CMeasSettingsDlg.h"
#include "tests/controls/settings_page/scripted_page.h"

namespace hx {
namespace {

template <class Page>
class InterruptedPage : public ScriptedPage<Page> {};
using Pages = testing::Types<CMeasSettingsDlg, CHandheldMeasSettingsDlg>;
TYPED_TEST_SUITE(InterruptedPage, Pages);

// As far as calls go that only read, an operation may come to its end.
bool Reads(const std::string& call) {
    return call.starts_with("Get") || call.starts_with("CreateCalibrationHandle");
}

TYPED_TEST(InterruptedPage, LeavesNothingOfTheScannerBehind) {
    struct Act {
        const char* name;
        std::function<void()> prepare, run;
    };
    enum class Comes { kLeft, kSelectedAgain, kClosed };
    scripted::Script& scanner = this->script;
    auto& tested = this->page;
    this->SwitchOn(kDetectKey);
    scanner.field_of_view = 3;
    scanner.detected_exposure_us = 2000;
    scanner.detected_power = 44.5;
    const auto scroll = [&](uint32_t id, uint32_t code) {
        this->User().Scroll(this->template At<ui::TrackBar>(id), code);
    };
    const auto nothing = [] {};
    const auto edit = [&] { scroll(207, TB_LINEUP); };
    const Act acts[] = {
        {"select", [&] { tested->OnDeselected(); }, [&] { tested->OnSelected(); }},
        {"set up", [&] { this->Arrive(HXNotConnected); }, [&] { this->Arrive(HXConnected); }},
        {"another profile", edit,
         [&] { this->User().ClickRow(tested->ProfileList(), 1 - tested->ProfileList().Selected()); }},
        {"slider", nothing, edit},
        {"field of view", nothing, [&] { scroll(277, TB_LINEDOWN); }},
        {"detection", nothing, [&] { this->User().Click(this->template At<ui::Button>(269)); }},
        {"close", edit, [&] { tested->CommitOnClose(); }},
    };
    for (const Comes comes : {Comes::kLeft, Comes::kSelectedAgain, Comes::kClosed}) {
        for (const Act& act : acts) {
            bool came = true;
            for (int32_t n = 0; came; ++n) {
                tested.reset();
                scanner.closed = false;
                scanner.uses = "---";
                this->Open();
                act.prepare();
                came = false;
                int32_t left = n;
                std::string at;
                scanner.calls.clear();
                scanner.during = [&](const std::string& call) {
                    if (came || left-- > 0) return;
                    came = true;
                    at = call;
                    comes == Comes::kClosed ? tested->Destroy() : tested->OnDeselected();
                    if (comes == Comes::kSelectedAgain) tested->OnSelected();
                    scanner.calls.clear();
                };
                act.run();
                scanner.during = nullptr;
                SCOPED_TRACE(act.name + (" in " + at) + " " + std::to_string(n));
                const bool in_use = !came || comes == Comes::kSelectedAgain;
                EXPECT_EQ(scanner.Uses(), in_use ? "ARO" : "---");
                if (came && comes != Comes::kSelectedAgain) {
                    for (const std::string& call : scanner.calls) {
                        EXPECT_TRUE(Reads(call) || comes == Comes::kLeft) << call;
                        EXPECT_FALSE(call.starts_with("Activate")) << call;
                    }
                }
                this->boxes.TakeBoxes();
                if (comes == Comes::kClosed) continue;
                if (came && comes == Comes::kLeft) tested->OnSelected();
                EXPECT_EQ(scanner.Uses(), "ARO");
                EXPECT_TRUE(tested->IsReady());
                this->boxes.TakeBoxes();
            }
        }
    }
}

// Nobody was told of its place, and nothing that is done later may tell it by the way.
TYPED_TEST(InterruptedPage, ASliderOfTheFieldOfViewThatIsHeldGoesBack) {
    this->script.field_of_view = 3;
    this->Open();
    auto& slider = this->template At<ui::TrackBar>(277);
    slider.SetPosition(1);
    static_cast<ui::Dialog&>(*this->page).OnScroll(slider, TB_LINEDOWN, 1);
    this->page->OnDeselected();
    EXPECT_EQ(slider.Position(), 0);
    EXPECT_FALSE(this->page->IsModified());
}

}  // namespace
}  // namespace hx
