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
    const std::wstring kanji = L"計測\U0001F4A1";
    const Case cases[] = {
        {L"", {}, L"New (1)"},
        {L" \t\x3000", {L"New (1)", L"New (2)"}, L"New (3)"},
        {L"Scan (3)", {}, L"Scan (1)"},
        {L"  Scan (3)  ", {L"Scan (1)"}, L"Scan (2)"},
        {L"Scan(3)", {}, L"Scan(1)"},
        {L"Scan (x)", {}, L"Scan (x) (1)"},
        {L"Scan ()", {}, L"Scan () (1)"},
        {L"Scan (3", {}, L"Scan (3 (1)"},
        {L"3)", {}, L"3) (1)"},
        {L"(3)", {}, L"(1)"},
        {L"Scan (3) (x)", {}, L"Scan (3) (x) (1)"},
        {L"Scan (1\x0663)", {}, L"Scan (1\x0663) (1)"},
        {L"100 % %d %n %s (12)", {}, L"100 % %d %n %s (1)"},
        {kanji, {kanji + L" (1)"}, kanji + L" (2)"},
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
    struct Case {
        std::wstring name;
        std::wstring message;
        bool taken;
    };
    const std::wstring other = L"\nChoose a different name for the new profile.";
    const Case cases[] = {
        {L"oWN 100%S", L"The profile name 'oWN 100%S' already exists.", true},
        {L"$default", L"The profile name '$default' already exists.", true},
        {L"", L"The profile name must not be empty.", false},
        {L"$CUSTOM", L"The profile name '$CUSTOM' is reserved and cannot be used." + other, false},
        {L"*x", L"The profile name cannot begin with a '*'." + other, false},
        {L"$x", L"The profile name cannot begin with a '$'." + other, false},
    };
    for (const Case& row : cases) {
        const auto fault = CheckProfileName(row.name);
        ASSERT_TRUE(fault) << row.name;
        EXPECT_EQ(fault->message, row.message);
        EXPECT_EQ(fault->taken, row.taken);
    }
    for (const std::wstring& good :
         {std::wstring(L"100%"), std::wstring(10'000, L'x'), std::wstring(L"a\nb")}) {
        EXPECT_FALSE(CheckProfileName(good));
    }
    MResourceLocale::ExchangeResourceModule(ModuleOf(L""));
    EXPECT_TRUE(CheckProfileName(L"")) << "also without a text";
    EXPECT_TRUE(CheckProfileName(L"$DEFAULT"));
    MResourceLocale::ExchangeResourceModule(nullptr);
}

TEST_F(ProfilesTest, NamesAreAskedForInThreeWays) {
    struct Case {
        const char* what;
        bool rename;
        bool prompt;
        std::wstring name;
        std::vector<ui::Script::Answer> answers;
        int32_t result;
        std::wstring given;
        size_t boxes;
    };
    const Case cases[] = {
        {"save by Enter", false, false, L"Own", {{By::enter, 0, {}}}, 1, L"Own (1)", 0},
        {"save, trimmed", false, false, L"Own", {{By::button, 1, L"  New \t"}}, 1, L"New", 0},
        {"save, refused, then good",
         false,
         false,
         L"",
         {{By::enter, 0, L"own"}, {By::enter, 0, L"x"}},
         1,
         L"x",
         1},
        {"save, cancelled", false, false, L"Own", {{By::button, 2, L"New"}}, 2, L"", 0},
        {"save, Escape after a refusal",
         false,
         false,
         L"Own",
         {{By::enter, 0, L" "}, {By::escape, 0, {}}},
         2,
         L"",
         1},
        {"rename", true, false, L"Own", {{By::button, 1, L"New"}}, 1, L"New", 0},
        {"rename, closed", true, false, L"Own", {{By::close, 0, {}}}, 2, L"", 0},
        {"prompt, Enter saves", false, true, L"$A", {{By::enter, 0, L"New"}}, 1, L"New", 0},
        {"prompt, Enter is checked",
         false,
         true,
         L"$A",
         {{By::enter, 0, {}}, {By::button, 284, L"y"}},
         1,
         L"y",
         1},
        {"prompt, discarded unchecked", false, true, L"$A", {{By::button, 1, L"$A"}}, 3, L"", 0},
        {"prompt, cancelled", false, true, L"$A", {{By::escape, 0, {}}}, 2, L"", 0},
    };
    Fill({L"$A", L"Own"});
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        for (const auto& answer : row.answers) m_script.AnswerModal(answer);
        std::wstring name = row.name;
        EXPECT_EQ(CLaserProfileSaveAsDlg(nullptr, row.rename, row.prompt).Run(name), row.result);
        EXPECT_EQ(name, row.given);
        const auto modals = m_script.TakeModals();
        ASSERT_EQ(modals.size(), 1u);
        EXPECT_EQ(modals[0].title,
                  row.rename ? L"Rename Dynamic Settings Profile" : L"Save Dynamic Settings Profile");
        const std::vector<std::wstring> plain = {row.rename ? L"Rename" : L"Save", L"Cancel"};
        const std::vector<std::wstring> prompting = {L"Save", L"Discard", L"Cancel"};
        EXPECT_EQ(modals[0].captions, row.prompt ? prompting : plain);
        EXPECT_EQ(modals[0].default_button, row.rename ? L"Rename" : L"Save");
        EXPECT_EQ(modals[0].text, row.name.empty() ? L"New Profile (1)" : row.name + L" (1)");
        EXPECT_EQ(m_script.AnswersLeft(), 0u);
        const auto boxes = m_script.TakeBoxes();
        EXPECT_EQ(boxes.size(), row.boxes);
        for (const auto& box : boxes) {
            EXPECT_EQ(box.caption, L"");
            EXPECT_EQ(box.icon, ui::BoxIcon::error);
        }
    }
}

TEST_F(ProfilesTest, TheNameIsSelectedAtTheStartAndWhenItIsTaken) {
    Fill({L"Own"});
    const auto expect_selected = [](ui::Dialog& dialog) {
        auto* const edit = dialog.FindAs<ui::Edit>(226);
        ASSERT_TRUE(edit != nullptr);
        EXPECT_TRUE(edit->HasFocus());
        EXPECT_EQ(edit->GetSelection(), (ui::Edit::Selection{0, edit->Text().size()}));
    };
    size_t shown = 0;
    m_script.while_modal = [&](ui::Dialog& dialog) {
        ++shown;
        expect_selected(dialog);
        User().Type(*dialog.FindAs<ui::Edit>(226), L"OWN");
        User().Click(*dialog.Find(1));
        EXPECT_EQ(m_script.TakeBoxes().size(), 1u);
        expect_selected(dialog);
    };
    m_script.AnswerModal({By::escape, 0, {}});
    std::wstring name;
    EXPECT_EQ(CLaserProfileSaveAsDlg(nullptr, false, false).Run(name), CLaserProfileSaveAsDlg::kCancelled);
    EXPECT_EQ(shown, 1u);
}

TEST_F(ProfilesTest, ABrokenDialogIsTold) {
    for (const wchar_t* const script : {L"LTEXT \"\", -1, 0, 0, 9, 9", L"EDITTEXT 226, 0, 0, 9, 9"}) {
        ResourceError error;
        Resources broken = ReadResourceScript(std::wstring(L"205 DIALOGEX 0, 0, 90, 90\nBEGIN\n") + script +
                                                  L"\nEND\nSTRINGTABLE BEGIN 213 \"Broken.\" END\n",
                                              error)
                               .value();
        MResourceLocale::ExchangeResourceModule(MakeResourceModule(L"", broken));
        std::wstring name = L"Own";
        EXPECT_EQ(CLaserProfileSaveAsDlg(nullptr, false, true).Run(name), CLaserProfileSaveAsDlg::kCancelled);
        MResourceLocale::ExchangeResourceModule(nullptr);
        const auto boxes = m_script.TakeBoxes();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, L"Broken.");
        EXPECT_EQ(boxes[0].icon, ui::BoxIcon::error);
    }
}

}  // namespace
}  // namespace hx
