// What a person does to controls, and what their dialog is told.
#include <algorithm>
#include <iterator>

#include "tests/platform/ui/behaviour_fixture.h"

namespace hx_test {
namespace {

using namespace hx::ui;

TEST_F(Behaviour, ATypedTextIsToldCharacterByCharacterAndASetOneOnce) {
    auto& edit = Get<Edit>(kPowerText);
    edit.SetText(L"50");
    EXPECT_EQ(Events(), (Texts{"13 EN_UPDATE", "13 EN_CHANGE"}));
    EXPECT_EQ(edit.GetSelection(), Edit::Selection());
    EXPECT_TRUE(user.Type(edit, L"7é\U0001F600"));
    EXPECT_EQ(edit.Text(), L"7é\U0001F600");
    EXPECT_EQ(edit.GetSelection(), (Edit::Selection{3, 3}));
    Texts expected = {"13 EN_SETFOCUS"};
    for (int i = 0; i < 3; ++i) expected.insert(expected.end(), {"13 EN_UPDATE", "13 EN_CHANGE"});
    EXPECT_EQ(Events(), expected);
    EXPECT_TRUE(user.Key(edit, VK_BACK));
    EXPECT_EQ(edit.Text(), L"7é");
    EXPECT_TRUE(user.Leave(edit));
    EXPECT_TRUE(Get<CheckBox>(kAutomatic).HasFocus());
    EXPECT_EQ(Events(), (Texts{"13 EN_UPDATE", "13 EN_CHANGE", "13 EN_KILLFOCUS"}));
}

TEST_F(Behaviour, WhatIsCopiedLiesInTheClipboardUntilTheNext) {
    for (const wchar_t* const text : {L"one\nt\u00E4\t\U0001F600\n", L"", L"another"}) {
        EXPECT_TRUE(hx::ui::CopyToClipboard(text));
        EXPECT_EQ(user.Clipboard(), text);
    }
    const auto shown_with = hx::ui::SetRenderer(nullptr);
    EXPECT_FALSE(hx::ui::CopyToClipboard(L"nobody takes it"));
    hx::ui::SetRenderer(shown_with);
    EXPECT_EQ(user.Clipboard(), L"another");
}

TEST_F(Behaviour, WhatIsTooMuchOfAPastedTextIsLeftOut) {
    auto& edit = Get<Edit>(kPowerText);
    EXPECT_TRUE(user.Paste(edit, std::wstring(2 * Edit::kTextLimit, L'x')));
    EXPECT_EQ(edit.Text(), std::wstring(Edit::kTextLimit, L'x'));
    EXPECT_EQ(Events(), (Texts{"13 EN_SETFOCUS", "13 EN_UPDATE", "13 EN_CHANGE"}));
    EXPECT_TRUE(user.Paste(edit, L"first\r\nsecond"));
    EXPECT_EQ(edit.Text(), L"first");
    const std::wstring right_to_left = std::wstring(1000, L'\u05D0') + std::wstring(1000, L'\u202E');
    EXPECT_TRUE(user.Paste(edit, right_to_left));
    EXPECT_EQ(edit.Text(), right_to_left);
}

TEST_F(Behaviour, AHandlerMayChangeTheTextThatItIsToldOf) {
    auto& edit = Get<Edit>(kPowerText);
    page->on_command = [&](Control& control, uint32_t code) {
        if (control.Id() == kPowerText && code == EN_CHANGE && edit.Text() == L"8") edit.SetText(L"100");
    };
    user.Type(edit, L"8");
    EXPECT_EQ(edit.Text(), L"100");
}

TEST_F(Behaviour, ADialogMayGoWhileItIsTold) {
    struct Case {
        uint32_t control;
        uint32_t code;
        std::function<void()> action;
    };
    const Case cases[] = {
        {kPowerText, EN_UPDATE, [&] { user.Type(Get<Edit>(kPowerText), L"12"); }},
        {kPowerText, EN_SETFOCUS, [&] { user.Focus(Get<Edit>(kPowerText)); }},
        {kAutomatic, BN_CLICKED, [&] { user.Click(Get<CheckBox>(kAutomatic)); }},
        {kDetect, BN_CLICKED, [&] { user.Mnemonic(*page, L'd'); }},
        {kList, LBN_SELCHANGE, [&] { user.ClickRow(Get<ListBox>(kList), 0); }},
        {kGain, CBN_SELCHANGE, [&] { user.Choose(Get<ComboBox>(kGain), 0); }},
    };
    for (const bool whole : {false, true}) {
        for (const Case& row : cases) {
            SCOPED_TRACE(std::to_string(row.control) + (whole ? " deleted" : " destroyed"));
            page = std::make_unique<TestDialog>();
            ASSERT_FALSE(page->Create(TestModule(), kPage, &frame));
            page->Show(true);
            Get<ListBox>(kList).Insert(-1, L"row");
            Get<ComboBox>(kGain).Add(L"1");
            bool gone = false;
            page->on_command = [&, whole](Control& control, uint32_t code) {
                if (control.Id() != row.control || code != row.code) return;
                gone = true;
                if (whole) {
                    page.reset();
                } else {
                    page->Destroy();
                }
            };
            row.action();
            renderer.Pump();
            EXPECT_TRUE(gone);
        }
    }
}

TEST_F(Behaviour, ATrackBarTellsEachStepAndTheEnd) {
    auto& power = Get<TrackBar>(kPower);
    power.SetPosition(50);
    EXPECT_TRUE(Events().empty());
    struct Case {
        uint32_t code;
        int32_t position;
        const char* name;
    };
    const Case cases[] = {
        {TB_LINEUP, 49, "TB_LINEUP"},     {TB_PAGEUP, 30, "TB_PAGEUP"}, {TB_LINEDOWN, 51, "TB_LINEDOWN"},
        {TB_PAGEDOWN, 70, "TB_PAGEDOWN"}, {TB_TOP, 0, "TB_TOP"},        {TB_BOTTOM, 100, "TB_BOTTOM"}};
    for (const Case& row : cases) {
        power.SetPosition(50);
        EXPECT_TRUE(user.Scroll(power, row.code));
        const std::string end = " " + std::to_string(row.position);
        EXPECT_EQ(Events(), (Texts{std::string("12 ") + row.name + end, "12 TB_ENDTRACK" + end}));
        EXPECT_EQ(power.Position(), row.position);
    }
    EXPECT_TRUE(user.Drag(power, 20));
    EXPECT_TRUE(user.Drag(power, 30));
    EXPECT_TRUE(user.Drop(power));
    EXPECT_EQ(Events(), (Texts{"12 TB_THUMBTRACK 20", "12 TB_THUMBTRACK 30", "12 TB_THUMBPOSITION 30",
                               "12 TB_ENDTRACK 30"}));
    EXPECT_FALSE(user.Drop(power));
}

TEST_F(Behaviour, KeysMoveATrackBar) {
    struct Case {
        uint32_t id;
        uint32_t key;
        int32_t position;
    };
    const Case cases[] = {{kPower, VK_LEFT, 49},  {kPower, VK_RIGHT, 51}, {kPower, VK_PRIOR, 30},
                          {kPower, VK_NEXT, 70},  {kPower, VK_HOME, 0},   {kPower, VK_END, 100},
                          {kHeight, VK_LEFT, 49}, {kHeight, VK_UP, 51},   {kHeight, VK_DOWN, 49}};
    for (const Case& row : cases) {
        auto& track_bar = Get<TrackBar>(row.id);
        track_bar.SetPosition(50);
        EXPECT_TRUE(user.Key(track_bar, row.key));
        EXPECT_EQ(track_bar.Position(), row.position) << row.id << " key " << row.key;
        EXPECT_EQ(Events().size(), 2u);
    }
}

TEST_F(Behaviour, TheWheelDoesNothingToAControlWithoutTheFocus) {
    auto& power = Get<TrackBar>(kPower);
    auto& gain = Get<ComboBox>(kGain);
    gain.Add(L"1");
    gain.Add(L"2");
    gain.Select(0);
    power.SetPosition(50);
    user.Wheel(power, 1);
    user.Wheel(gain, -1);
    EXPECT_EQ(power.Position(), 50);
    EXPECT_EQ(gain.Selected(), 0);
    EXPECT_TRUE(Events().empty());
    user.Focus(power);
    user.Wheel(power, 1);
    EXPECT_EQ(power.Position(), 51);
    EXPECT_EQ(Events(), (Texts{"12 TB_LINEDOWN 51", "12 TB_ENDTRACK 51"}));
}

TEST_F(Behaviour, RowsAndEntriesAreChosen) {
    auto& list = Get<ListBox>(kList);
    for (const wchar_t* row : {L"a", L"b", L"c"}) list.Insert(-1, row);
    list.Select(1);
    list.Insert(0, L"first");
    EXPECT_EQ(list.Selected(), 2);
    list.Remove(0);
    EXPECT_EQ(list.Selected(), 1);
    EXPECT_TRUE(Events().empty());
    EXPECT_TRUE(user.ClickRow(list, 2));
    EXPECT_TRUE(user.Key(list, VK_UP));
    EXPECT_EQ(list.Selected(), 1);
    EXPECT_EQ(Events(), (Texts{"11 LBN_SELCHANGE", "11 LBN_SELCHANGE"}));
    EXPECT_FALSE(user.ClickRow(list, 3));
    list.Remove(1);
    EXPECT_EQ(list.Selected(), -1);

    auto& gain = Get<ComboBox>(kGain);
    gain.Add(L"1");
    gain.Add(L"2");
    EXPECT_TRUE(user.Choose(gain, 1));
    EXPECT_EQ(gain.Selected(), 1);
    EXPECT_EQ(Events(), (Texts{"15 CBN_SELCHANGE"}));
    EXPECT_FALSE(user.Choose(gain, 2));
}

TEST_F(Behaviour, WhatAPersonCannotDoIsNotDone) {
    auto& detect = Get<Button>(kDetect);
    detect.Enable(false);
    EXPECT_FALSE(user.Click(detect));
    EXPECT_FALSE(user.Mnemonic(*page, L'd'));
    EXPECT_FALSE(user.Click(Get<Button>(kHidden)));
    detect.Enable(true);
    page->Show(false);
    EXPECT_FALSE(user.Click(detect));
    EXPECT_FALSE(user.Type(Get<Edit>(kPowerText), L"1"));
    page->Show(true);
    EXPECT_TRUE(user.Click(detect));
    EXPECT_EQ(Events(), (Texts{"16 BN_CLICKED"}));
}

TEST_F(Behaviour, DiscardedClicksAreNeverDone) {
    user.QueueClick(Get<CheckBox>(kAutomatic));
    renderer.DiscardMouseMessages();
    renderer.Pump();
    EXPECT_FALSE(Get<CheckBox>(kAutomatic).IsChecked());
    user.QueueClick(Get<CheckBox>(kAutomatic));
    renderer.Pump();
    EXPECT_TRUE(Get<CheckBox>(kAutomatic).IsChecked());
    EXPECT_EQ(Events(), (Texts{"14 BN_CLICKED"}));
}

TEST_F(Behaviour, OfDragsThatWaitTheLastIsDoneInItsPlace) {
    auto& power = Get<TrackBar>(kPower);
    for (const int32_t position : {10, 20, 30}) user.QueueDrag(power, position);
    user.QueueClick(Get<CheckBox>(kAutomatic));
    for (const int32_t position : {50, 40}) user.QueueDrag(power, position);
    renderer.Pump();
    EXPECT_TRUE(user.Drop(power));
    const Texts events = Events();
    EXPECT_EQ(std::count(events.begin(), events.end(), "14 BN_CLICKED"), 1);
    Texts tracked;
    std::copy_if(events.begin(), events.end(), std::back_inserter(tracked),
                 [](const std::string& event) { return event.starts_with("12 TB_THUMBTRACK"); });
    EXPECT_EQ(tracked, (Texts{"12 TB_THUMBTRACK 30", "12 TB_THUMBTRACK 40"}));
}

}  // namespace
}  // namespace hx_test
