// A settings page's control whose host lets it go in the middle of each call that the page makes, whether the
// host or the operator started that.
#include "platform/ui/codes.h"
#include "tests/controls/scripted_api.h"
#include "tests/controls/scripted_device.h"
#include "tests/controls/shell/hosted_page.h"

namespace {

namespace ui = hx::ui;

class ReleasedControl : public hosted::WithPage {
protected:
    struct Act {
        const char* name;
        std::function<void()> prepare, run;
    };
    // False once there is no n-th call any more.
    bool ReleaseIn(const wchar_t* prog_id, const Act& act, int32_t n) {
        scripted::Script scanner;
        scanner.drivers = {L"arm", L"", L"HXScanner"};
        scanner.properties = scripted::PropertiesOf(L"HX");
        scanner.field_of_view = 3;
        scanner.detected_exposure_us = 2000;
        m_scanner = hx::Make<scripted::Api>(scanner).as<IUnknown>();
        Create(prog_id);
        Initialise(L"Own");
        m_page->OnSelected();
        act.prepare();
        bool came = false;
        std::string at;
        scanner.during = [&](const std::string& call) {
            if (came || n-- > 0) return;
            came = true;
            at = call;
            Close();
            scanner.calls.clear();
        };
        act.run();
        scanner.during = nullptr;
        SCOPED_TRACE(std::string(act.name) + " in " + at);
        if (came) {
            EXPECT_EQ(scanner.Uses(), "---");
            for (const std::string& call : scanner.calls) {
                EXPECT_TRUE(call.starts_with("Get") || call.starts_with("CreateCalibrationHandle")) << call;
            }
        }
        Close();
        m_scanner.reset();
        script.TakeBoxes();
        EXPECT_EQ(scanner.alive, 0);
        return came;
    }
    void SetUpPage() { m_page->SetHXApi(m_scanner.get()); }

    hx::ComPtr<IUnknown> m_scanner;
};

TEST_F(ReleasedControl, LeavesNothingOfTheScannerBehind) {
    const auto scroll = [&](uint32_t slider, uint32_t code) {
        User().Scroll(At<ui::TrackBar>(slider), code);
    };
    const auto set_up = [&] { SetUpPage(); };
    const auto edited = [&] { SetUpPage(), scroll(207, TB_LINEUP); };
    const Act acts[] = {
        {"set up", [] {}, set_up},
        {"select", [&] { SetUpPage(), m_page->OnDeselected(); }, [&] { m_page->OnSelected(); }},
        {"leave", set_up, [&] { m_page->OnDeselected(); }},
        {"another profile", edited, [&] { User().ClickRow(At<ui::ListBox>(6000), 0); }},
        {"slider", set_up, [&] { scroll(207, TB_LINEUP); }},
        {"field of view", set_up, [&] { scroll(277, TB_LINEDOWN); }},
        {"detection", set_up, [&] { User().Click(At<ui::Button>(269)); }},
        {"close", edited,
         [&] {
             BOOL answer = 0;
             m_page->Save(&answer);
         }},
    };
    for (const wchar_t* const prog_id : {kProgIdHXMeasSettingsCtrl, kProgIdHXHandheldMeasSettingsCtrl}) {
        for (const Act& act : acts) {
            for (int32_t n = 0; ReleaseIn(prog_id, act, n);) ++n;
        }
    }
}

}  // namespace
