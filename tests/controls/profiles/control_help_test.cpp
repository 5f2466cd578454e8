// The tool tips of controls.
#include "controls/widgets/ControlHelp.h"

#include <gtest/gtest.h>

#include "platform/ui/controls.h"
#include "tests/controls/profiles/profile_page.h"

namespace hx {
namespace {

class ToldButton final : public ui::Button {
public:
    void Changed(ui::ControlChange change) override {
        if (change == ui::ControlChange::tool_tip) ++tool_tips_shown;
    }
    int tool_tips_shown = 0;
};

class HelpDialog final : public ui::Dialog {
public:
    HelpDialog() {
        Bind(10, with_help);
        Bind(11, without_help);
        EXPECT_FALSE(
            Create(ModuleOf(L"PUSHBUTTON \"x\", 10, 0, 0, 50, 14\nPUSHBUTTON \"y\", 11, 0, 20, 50, 14"), 1,
                   nullptr));
    }
    ~HelpDialog() override { Destroy(); }
    ToldButton with_help;
    ToldButton without_help;
};

ModuleHandle ModuleWith(std::map<uint32_t, std::wstring> strings) {
    Resources resources;
    resources.strings = std::move(strings);
    return MakeResourceModule({}, std::move(resources));
}

using ControlHelp = ScreenTest;

TEST_F(ControlHelp, IsTheTextAndBelowItTheReasonAndIsShownAnewOnlyWhenItDiffers) {
    const ModuleHandle english =
        ModuleWith({{3010, L"Power."}, {2902, L"Off."}, {2903, L"Far"}, {2904, L"ar."}});
    const ModuleHandle german = ModuleWith({{3010, L"Leistung."}, {2902, L"Aus."}});
    struct Step {
        const ResourceModule& module;
        Disabled disabled;
        std::wstring with_help;
        std::wstring without_help;
    };
    const Step steps[] = {
        {*english, Disabled::kNot, L"Power.", L""},
        {*english, Disabled::kAutomaticPower, L"Power.\nOff.", L"Off."},
        {*english, Disabled::kNotConnected, L"Power.\nFar", L"Far"},
        {*english, Disabled::kNo3DFilter, L"Power.\nar.", L"ar."},  // as long
        {*german, Disabled::kAutomaticPower, L"Leistung.\nAus.", L"Aus."},
        {*german, Disabled::kNotConnected, L"Leistung.", L""},  // a reason that has no words
    };
    HelpDialog dialog;
    int shown = 0;
    for (const Step& step : steps) {
        ++shown;
        for (int again = 0; again < 2; ++again) {
            SetHelp(dialog.with_help, step.module, step.disabled);
            SetHelp(dialog.without_help, step.module, step.disabled);
            EXPECT_EQ(dialog.with_help.ToolTip(), step.with_help);
            EXPECT_EQ(dialog.without_help.ToolTip(), step.without_help);
            EXPECT_EQ(dialog.with_help.tool_tips_shown, shown);
        }
    }
}

}  // namespace
}  // namespace hx
