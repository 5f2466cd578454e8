// Asking for the name of a profile: what is suggested, what is refused, and the three ways to ask.
#include <set>

#include "controls/profiles/CLaserProfileSaveAsDlg.h"
#include "controls/profiles/ProfileNameCheck.h"
#include "controls/profiles/SuggestedName.h"
#include "core/locale/MResourceLocale.h"
#include "tests/controls/profiles/profile_page.h"

namespace hx {
namespace {

using By = ui::Script::Answer::By;

TEST(SuggestedNames, TakeTheFirstFreeNumber) {
    struct Case {
        std::wstring name;
        std::set<std::wstring> taken;
        std::wstring suggested;
    };
    const Case cases[] = {
        {L"", {}, L"New (1)"},
        {L" \t\x3000", {L"New (1)", L"New (2)"}, L"New (3)"},
        {L"  Scan (3)  ", {L"Scan (1)"}, L"Scan (2)"},
        {L"Scan(3)", {}, L"Scan(1)"},
        {L"Scan (x)", {}, L"Scan (x) (1)"},
        {L"Scan ()", {}, L"Scan () (1)"},
        {L"Scan (3", {}, L"Scan (3 (1)"},
        {L"3)", {}, L"3) (1)"},
        {L"Scan (1\x0663)", {}, L"Scan (1\x0663) (1)"},
        {L"100 % %d %n %s (12)", {}, L"100 % %d %n %s (1)"},
        {std::wstring(10'000, L'%'), {}, std::wstring(10'000, L'%') + L" (1)"},
    };
    for (const Case& row : cases) {
        const auto is_taken = [&](std::wstring_view name) { return row.taken.contains(std::wstring(name)); };
        EXPECT_EQ(SuggestedName(row.name, L"New (%d)", is_taken), row.suggested);
    }
    int asked = 0;
    EXPECT_EQ(SuggestedName(L"", L"Nouveau", [&](std::wstring_view) { return ++asked < 3; }), L"Nouveau (3)")
        << "a text without a number gets one";
}

TEST_F(ProfilesTest, NamesAreCheckedInTheOperatorsWords) {
    Fill({L"Own 100%s", L"$DEFAULT"});
    const std::wstring other = L"\nChoose a different name for the new profile.";
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"oWN 100%S", L"The profile name 'oWN 100%S' already exists."},
        {L"$default", L"The profile name '$default' already exists."},
        {L"", L"The profile name must not be empty."},
        {L"$CUSTOM", L"The profile name '$CUSTOM' is reserved and cannot be used." + other},
        {L"*x", L"The profile name cannot begin with a '*'." + other},
        {L"100%", L""},
        {std::wstring(10'000, L'x'), L""},
    };
    for (const auto& [name, message] : cases) {
        EXPECT_EQ(CheckProfileName(name).value_or(ProfileNameFault{}).message, message);
    }
}

TEST_F(ProfilesTest, NamesAreAskedForInThreeWays) {
    struct Case {
        bool rename, prompt;
        std::wstring name;
        std::vector<ui::Script::Answer> answers;
        int32_t result;
        std::wstring given;
        size_t boxes;
    };
    const Case cases[] = {
        {false, false, L"Own", {{By::enter, 0, {}}}, 1, L"Own (1)", 0},
        {false, false, L"Own", {{By::button, 1, L"  New \t"}}, 1, L"New", 0},
        {false, false, L"", {{By::enter, 0, L"own"}, {By::enter, 0, L"x"}}, 1, L"x", 1},
        {false, false, L"Own", {{By::enter, 0, L" "}, {By::escape, 0, {}}}, 2, L"", 1},
        {true, false, L"Own", {{By::button, 1, L"New"}}, 1, L"New", 0},
        {true, false, L"Own", {{By::close, 0, {}}}, 2, L"", 0},
        {false, true, L"$A", {{By::enter, 0, {}}, {By::button, 284, L"y"}}, 1, L"y", 1},
        {false, true, L"$A", {{By::button, 1, L"$A"}}, 3, L"", 0},
        {false, true, L"$A", {{By::button, 2, L"y"}}, 2, L"", 0},
    };
    Fill({L"$A", L"Own"});
    for (const Case& row : cases) {
        SCOPED_TRACE(&row - cases);
        for (const auto& answer : row.answers) m_script.AnswerModal(answer);
        std::wstring name = row.name;
        EXPECT_EQ(CLaserProfileSaveAsDlg(nullptr, row.rename, row.prompt).Run(name), row.result);
        EXPECT_EQ(name, row.given);
        const auto modals = m_script.TakeModals();
        ASSERT_EQ(modals.size(), 1u);
        const std::wstring save = row.rename ? L"Rename" : L"Save";
        EXPECT_EQ(modals[0].title, save + L" Dynamic Settings Profile");
        const std::vector<std::wstring> prompting = {L"Save", L"Discard", L"Cancel"};
        EXPECT_EQ(modals[0].captions, row.prompt ? prompting : std::vector<std::wstring>({save, L"Cancel"}));
        EXPECT_EQ(modals[0].default_button, save);
        EXPECT_EQ(modals[0].text, row.name.empty() ? L"New Profile (1)" : row.name + L" (1)");
        EXPECT_EQ(m_script.AnswersLeft(), 0u);
        EXPECT_EQ(m_script.TakeBoxes().size(), row.boxes);
    }
}

TEST_F(ProfilesTest, TheNameIsSelectedAtTheStartAndWhenItIsTaken) {
    Fill({L"Own"});
    const auto expect_selected = [](ui::Edit& edit) {
        EXPECT_TRUE(edit.HasFocus());
        EXPECT_EQ(edit.GetSelection(), (ui::Edit::Selection{0, edit.Text().size()}));
    };
    m_script.while_modal = [&](ui::Dialog& dialog) {
        auto& edit = *dialog.FindAs<ui::Edit>(226);
        expect_selected(edit);
        User().Type(edit, L"OWN");
        User().Click(*dialog.Find(1));
        expect_selected(edit);
    };
    m_script.AnswerModal({By::escape, 0, {}});
    std::wstring name;
    CLaserProfileSaveAsDlg(nullptr, false, false).Run(name);
    const auto boxes = m_script.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].caption, L"");
    EXPECT_EQ(boxes[0].icon, ui::BoxIcon::error);
}

TEST_F(ProfilesTest, TheLogHoldsWhatTheOperatorIsTold) {
    SetModuleLogger(&Start());
    std::wstring name;
    m_script.AnswerModal({By::enter, 0, L" "});
    m_script.AnswerModal({By::escape, 0, {}});
    CLaserProfileSaveAsDlg(nullptr, false, false).Run(name);
    MResourceLocale::ExchangeResourceModule(MakeResourceModule(L"/there.dll", {}));
    CLaserProfileSaveAsDlg(nullptr, false, false).Run(name);
    EXPECT_TRUE(CheckProfileName(L"")) << "also without a text that says why";
    MResourceLocale::ExchangeResourceModule(nullptr);
    SetModuleLogger(nullptr);
    const std::string text = Text("Mod_20240131_235959.log");
    EXPECT_TRUE(Contains(text, "The profile name must not be empty."));
    EXPECT_TRUE(Contains(text, "CLaserProfileSaveAsDlg.Run:CreateDialog"));
    EXPECT_TRUE(Contains(text, "$module=\"/there.dll\", $reason=\"no_template\""));
    EXPECT_EQ(m_script.TakeBoxes().size(), 2u);
}

}  // namespace
}  // namespace hx
