// Focus and keys of dialogs, modal dialogs and what answers them.
#include "tests/platform/ui/behaviour_fixture.h"

namespace hx_test {
namespace {

using namespace hx::ui;
using Answer = Script::Answer;

TEST_F(Behaviour, TabGoesByTheOrderOfTheTemplateOverWhatCanBeEntered) {
    Get<Button>(kDetect).Enable(false);
    const uint32_t order[] = {kList, kPower, kPowerText, kAutomatic, kGain, kHeight, kList};
    for (const uint32_t id : order) {
        user.Key(*page, VK_TAB);
        ASSERT_TRUE(page->Focused());
        EXPECT_EQ(page->Focused()->Id(), id);
    }
    user.Key(*page, VK_TAB, true);
    EXPECT_EQ(page->Focused()->Id(), kHeight);
}

TEST_F(Behaviour, TheFocusLeavesWhatIsDisabledOrHidden) {
    auto& edit = Get<Edit>(kPowerText);
    edit.SetFocus();
    edit.Enable(false);
    EXPECT_TRUE(Get<CheckBox>(kAutomatic).HasFocus());
    EXPECT_EQ(Events(), (Texts{"13 EN_SETFOCUS", "13 EN_KILLFOCUS"}));
    Get<CheckBox>(kAutomatic).Show(false);
    EXPECT_TRUE(Get<ComboBox>(kGain).HasFocus());
    edit.SetFocus();
    EXPECT_FALSE(edit.HasFocus());
}

TEST_F(Behaviour, MnemonicsPressButtonsAndLeadToWhatALabelNames) {
    struct Case {
        wchar_t letter;
        uint32_t focused;
        Texts events;
    };
    const Case cases[] = {{L'P', kPower, {}},
                          {L'a', kAutomatic, {"14 BN_CLICKED"}},
                          {L'g', kGain, {}},
                          {L'r', kList, {}},
                          {L'D', kDetect, {"16 BN_CLICKED"}}};
    for (const Case& row : cases) {
        EXPECT_TRUE(user.Mnemonic(*page, row.letter)) << static_cast<char>(row.letter);
        ASSERT_TRUE(page->Focused());
        EXPECT_EQ(page->Focused()->Id(), row.focused);
        EXPECT_EQ(Events(), row.events);
    }
    EXPECT_FALSE(user.Mnemonic(*page, L'z'));
    Get<ComboBox>(kGain).Enable(false);
    EXPECT_FALSE(user.Mnemonic(*page, L'g'));
}

TEST_F(Behaviour, AnAnswerEndsAModalDialogAsAPersonWould) {
    struct Case {
        Answer answer;
        int32_t result;
    };
    const Case cases[] = {{{Answer::By::button, IDOK, {}}, 1},
                          {{Answer::By::enter, 0, {}}, 1},
                          {{Answer::By::escape, 0, {}}, 2},
                          {{Answer::By::close, 0, {}}, 2},
                          {{Answer::By::button, kDiscard, {}}, 3}};
    for (const Case& row : cases) {
        TestDialog dialog;
        dialog.on_init = [&] { dialog.FindAs<Edit>(kName)->SetText(L"Scan (1)"); };
        dialog.on_command = [&](Control& control, uint32_t code) {
            if (control.Id() == kDiscard && code == BN_CLICKED) dialog.EndDialog(3);
        };
        script.AnswerModal(row.answer);
        EXPECT_EQ(dialog.RunModal(TestModule(), kModal, page.get()), row.result);
        EXPECT_FALSE(dialog.IsCreated());
        const std::vector<Script::Modal> modals = script.TakeModals();
        ASSERT_EQ(modals.size(), 1u);
        EXPECT_EQ(modals[0].title, L"Save profile");
        EXPECT_EQ(modals[0].captions, (std::vector<std::wstring>{L"Discard", L"Save & go", L"Cancel"}));
        EXPECT_EQ(modals[0].text, L"Scan (1)");
        EXPECT_EQ(modals[0].default_button, L"Save & go");
        EXPECT_EQ(modals[0].result, row.result);
        EXPECT_TRUE(modals[0].answered);
    }
    EXPECT_EQ(script.Unanswered(), 0u);
}

TEST_F(Behaviour, ARefusedAnswerIsFollowedByTheNext) {
    TestDialog dialog;
    std::wstring name;
    dialog.on_ok = [&] {
        name = dialog.FindAs<Edit>(kName)->Text();
        if (name == L"good") dialog.EndDialog(1);
    };
    script.AnswerModal({Answer::By::enter, 0, L"bad"});
    script.AnswerModal({Answer::By::button, IDOK, L"good"});
    EXPECT_EQ(dialog.RunModal(TestModule(), kModal, page.get()), 1);
    EXPECT_EQ(name, L"good");
    EXPECT_EQ(script.AnswersLeft(), 0u);
}

TEST_F(Behaviour, AModalDialogWithoutAnAnswerIsCancelledAndCounted) {
    TestDialog dialog;
    EXPECT_EQ(dialog.RunModal(TestModule(), kModal, page.get()), 2);
    expected_unanswered = 1;
    const std::vector<Script::Modal> modals = script.TakeModals();
    ASSERT_EQ(modals.size(), 1u);
    EXPECT_FALSE(modals[0].answered);
}

TEST_F(Behaviour, NobodyReachesWhatIsBehindAModalDialogOrABox) {
    auto& edit = Get<Edit>(kPowerText);
    user.Focus(edit);
    size_t tried = 0;
    const auto try_it = [&] {
        ++tried;
        EXPECT_FALSE(user.Click(Get<Button>(kDetect)));
        EXPECT_FALSE(user.Key(*page, VK_TAB));
        EXPECT_FALSE(user.Drag(Get<TrackBar>(kPower), 5));
    };
    script.while_modal = [&](Dialog& dialog) {
        try_it();
        EXPECT_TRUE(dialog.FindAs<Edit>(kName)->HasFocus());
        EXPECT_FALSE(edit.HasFocus());
    };
    script.while_box = try_it;
    TestDialog dialog;
    script.AnswerModal({Answer::By::escape, 0, {}});
    dialog.RunModal(TestModule(), kModal, page.get());
    ShowMessageBox(page.get(), L"caption", L"text", BoxIcon::warning);
    EXPECT_EQ(tried, 2u);
    EXPECT_TRUE(edit.HasFocus());
    EXPECT_EQ(Events(), (Texts{"13 EN_SETFOCUS", "13 EN_KILLFOCUS", "13 EN_SETFOCUS"}));
    const std::vector<Script::Box> boxes = script.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, L"text");
    EXPECT_TRUE(user.Click(Get<Button>(kDetect)));
}

TEST_F(Behaviour, EnterPressesTheFocusedButtonElseTheDefaultIfItCanBePressed) {
    TestDialog dialog;
    std::vector<uint32_t> pressed;
    dialog.on_ok = [&] { pressed.push_back(IDOK); };
    dialog.on_command = [&](Control& control, uint32_t code) {
        if (code == BN_CLICKED && control.Kind() == ControlKind::button) pressed.push_back(control.Id());
    };
    script.while_modal = [&](Dialog& shown) {
        user.Key(shown, VK_RETURN);
        shown.FindAs<Button>(IDOK)->Enable(false);
        user.Key(shown, VK_RETURN);
        user.Focus(*shown.Find(kDiscard));
        user.Key(shown, VK_RETURN);
    };
    script.AnswerModal({Answer::By::close, 0, {}});
    EXPECT_EQ(dialog.RunModal(TestModule(), kModal, page.get()), 2);
    EXPECT_EQ(pressed, (std::vector<uint32_t>{IDOK, kDiscard}));
}

TEST_F(Behaviour, AMenuGivesTheEntryThatCanBeChosen) {
    const std::vector<MenuLine> lines = {
        {1, L"&Save", true, false}, {0, L"", true, true}, {2, L"&Delete", false, false}};
    for (const auto& [command, chosen] : {std::pair{1u, 1u}, {2u, 0u}, {0u, 0u}, {7u, 0u}}) {
        script.AnswerMenu(command);
        EXPECT_EQ(RunMenu(*page, {3, 4}, lines), chosen);
    }
    EXPECT_EQ(RunMenu(*page, {3, 4}, lines), 0u);
    EXPECT_EQ(script.TakeMenus().size(), 5u);
}

TEST_F(Behaviour, AHiddenOrDestroyedFrameTakesItsPartsAlong) {
    page->shown.clear();
    Get<Edit>(kPowerText).SetFocus();
    frame.Show(false);
    EXPECT_FALSE(page->IsShown());
    EXPECT_EQ(Events(), (Texts{"13 EN_SETFOCUS", "13 EN_KILLFOCUS"})) << "nobody enters what is not seen";
    page->Show(false);
    page->Show(true);
    frame.Show(true);
    EXPECT_TRUE(page->IsShown());
    EXPECT_EQ(page->shown, (std::vector<bool>{false, true}));
    EXPECT_EQ(Window::FromHandle(page->Handle()), page.get());
    frame.Destroy();
    EXPECT_FALSE(page->IsCreated());
    EXPECT_EQ(page->Parent(), nullptr);
    EXPECT_TRUE(page->Controls().empty());
}

}  // namespace
}  // namespace hx_test
