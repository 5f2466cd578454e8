// The list of profiles: its order, what is selected and marked, its menu and its looks.
#include <algorithm>
#include <random>

#include "tests/controls/profiles/profile_page.h"

namespace hx {
namespace {

using Prompt = ProfilePage::Prompt;

TEST_F(ProfilesTest, RowsAreSortedAndThePagesOneIsSelectedAndMarked) {
    struct Case {
        std::vector<std::wstring> presets;
        std::wstring current;
        bool modified;
        std::wstring rows;
    };
    const Case cases[] = {
        {{L"zebra", L"$D=Std", L"Äpfel", L"äpfel 2", L"apple", L"ZEBRA 2", L"_x", L"$=100 %d\t&",
          L"Scan=beta"},
         L"scan",
         true,
         L"100 %d\t&, Std, _x, apple, *beta<, zebra, ZEBRA 2, Äpfel, äpfel 2"},
        {{}, L"A", true, L""},
        {{L"B", L"A"}, L"b", false, L"A, B<"},
        {{L"scan", L"SCAN", L"Scan"}, L"SCAN", true, L"scan, *SCAN<, Scan"},
        {{L"B", L"A"}, L"gone", true, L"A<, B"},
        {{L"B", L"$CUSTOM", L"$A"}, L"B", false, L"$A, $CUSTOM, B<"},
        {{L"B", L"$CUSTOM", L"$A"}, L"gone", true, L"$A, $CUSTOM<, B"},
    };
    for (const Case& row : cases) {
        Fill(row.presets);
        ProfilePage page(row.current, row.modified);
        page.list.Refill();
        EXPECT_EQ(page.Rows(), row.rows);
        EXPECT_TRUE(page.list.IsRedrawing());
        EXPECT_EQ(page.list.HorizontalExtent(), 1000);
    }
}

TEST_F(ProfilesTest, MarkingKeepsOrderNamesAndFlags) {
    std::mt19937 random(7);
    std::vector<std::wstring> names;
    for (int i = 0; i < 200; ++i) {
        const wchar_t first = (i % 2 == 0 ? L'a' : L'A') + static_cast<wchar_t>(random() % 26);
        names.push_back((i % 5 == 0 ? L"$" : L"") + std::wstring(1, first) + std::to_wstring(i));
    }
    Fill(names);
    ProfilePage page;
    const ProfilePage sorted;
    std::map<std::wstring, bool> marks;
    for (int i = 0; i < 500; ++i) {
        const std::wstring& name = names[random() % names.size()];
        marks[name] = random() % 2 == 0;
        page.list.MarkModified(name, marks[name]);
        ASSERT_EQ(page.list.SelectedName(), name);
    }
    for (int32_t i = 0; i < page.list.Count(); ++i) {
        const std::wstring& name = sorted.list.Row(i).name;
        EXPECT_EQ(page.list.Row(i).name, name);
        EXPECT_EQ(page.list.Row(i).modified, marks[name]);
        EXPECT_EQ(page.list.RowText(i), (marks[name] ? L"*" : L"") + name);
        EXPECT_EQ(page.list.Row(i).user_defined, name[0] != L'$');
        const ui::RowFacts facts = static_cast<const ui::ListBox&>(page.list).FactsOf(i);
        EXPECT_EQ(facts.key, name);
        EXPECT_EQ(facts.own, name[0] != L'$');
        EXPECT_EQ(facts.marked, marks[name]);
    }
    const size_t painted = m_renderer->ImmediatePaints(page.list);
    page.list.MarkModified(L"nobody", true);
    page.list.MarkModified(3, true);
    EXPECT_EQ(m_renderer->ImmediatePaints(page.list), painted + 1);
    EXPECT_EQ(page.list.SelectByName(L"nobody"), -1);
    EXPECT_EQ(page.list.Selected(), 3) << "an unknown name leaves the selection";
    Fill({L"b", L"B", L"c"});
    ProfilePage alike;
    alike.list.MarkModified(L"b", true);
    EXPECT_EQ(alike.Rows(), L"B, *b<, c") << "behind those that sort alike";
    EXPECT_EQ(alike.list.SelectedName(), L"b");
}

TEST_F(ProfilesTest, TheMenuFollowsItsRules) {
    struct Case {
        std::wstring current;
        bool modified;
        Prompt prompt;
        std::wstring refused;
        std::wstring clicked;  // "" outside of the rows, "key" for the keyboard
        uint32_t chosen;
        std::wstring enabled;  // mnemonics; "none" if there was no menu
        std::wstring calls, rows;
    };
    const Case cases[] = {
        {L"$A", false, Prompt::cancel, L"", L"$A", 32773, L"S", L"save ", L"$A<, B, C"},
        {L"B", false, Prompt::cancel, L"", L"B", 32772, L"SlR", L"rename ", L"$A, B<, C"},
        {L"B", true, Prompt::cancel, L"", L"B", 32774, L"SDl", L"discard ", L"$A, *B<, C"},
        {L"$A", true, Prompt::cancel, L"", L"$A", 0, L"SD", L"", L"*$A<, B, C"},
        {L"C", false, Prompt::cancel, L"", L"key", 32771, L"SlR", L"delete ", L"$A, B, C<"},
        {L"B", true, Prompt::cancel, L"", L"", 32773, L"none", L"", L"$A, *B<, C"},
        {L"$A", false, Prompt::cancel, L"", L"B", 0, L"SlR", L"toB ", L"$A, B<, C"},
        {L"$A", true, Prompt::cancel, L"", L"B", 32773, L"none", L"toB ", L"*$A<, B, C"},
        {L"$A", true, Prompt::discard, L"", L"B", 32771, L"SlR", L"toB toB delete ", L"$A, B<, C"},
        {L"$A", false, Prompt::cancel, L"B", L"B", 32771, L"none", L"toB ", L"$A<, B, C"},
        {L"$A", true, Prompt::close, L"", L"B", 32773, L"none", L"toB ", L""},
    };
    Fill({L"$A", L"B", L"C"});
    for (const Case& row : cases) {
        SCOPED_TRACE(testing::PrintToString(row.current + L" -> " + row.clicked));
        ui::Script script;
        ProfilePage page(row.current, row.modified);
        page.prompt = row.prompt;
        page.refused = row.refused;
        script.AnswerMenu(row.chosen);
        const int32_t index = page.list.FindByName(row.clicked);
        ui::Point where{5, page.list.RowHeight() * (index < 0 ? 3 : index) + 2};
        if (row.clicked == L"key") where = {-1, -1};
        User().ContextMenu(page.list, where);
        const auto menus = script.TakeMenus();
        std::wstring enabled = menus.empty() ? L"none" : L"";
        for (const ui::MenuLine& line : menus.empty() ? std::vector<ui::MenuLine>() : menus[0].lines) {
            if (line.enabled && !line.separator) enabled += line.text[line.text.find(L'&') + 1];
        }
        EXPECT_EQ(enabled, row.enabled);
        EXPECT_EQ(page.calls, row.calls);
        EXPECT_EQ(page.Rows(), row.rows);
        if (row.clicked != L"key" || menus.empty()) continue;
        EXPECT_EQ(menus[0].where.y, page.list.Bounds().top + 10);
    }
}

TEST_F(ProfilesTest, KeysDeleteAndRename) {
    ProfilePage page;
    for (const uint32_t key : {VK_BACK, VK_DELETE, VK_F2, VK_HOME}) User().Key(page.list, key);
    EXPECT_EQ(page.calls, L"delete delete rename ");
}

TEST_F(ProfilesTest, RowsAreDrawnByTheirState) {
    using enum ui::SystemColour;
    const std::wstring odd = L"Two\n\x202E\x7F\xD800\tד&%s";
    const std::wstring wide(10'000, L'W');
    struct Case {
        std::wstring name;
        bool selected, enabled;
        ui::SystemColour background, text;
        std::wstring shown;
    };
    const Case cases[] = {
        {L"$A", false, true, button_face, window_text, L"*$A"},
        {L"$A", true, true, highlight, highlight_text, L"*$A"},
        {L"$A", false, false, button_face, gray_text, L"*$A"},
        {odd, false, true, window, window_text, L"Two\xFFFD\xFFFD\xFFFD\xFFFD\tד&%s"},
        {odd, false, false, window, gray_text, L"Two\xFFFD\xFFFD\xFFFD\xFFFD\tד&%s"},
        {wide, true, true, highlight, highlight_text, wide},
    };
    Fill({L"$A", odd, wide});
    m_renderer->SetDark(true);
    ProfilePage page(L"$A", true);
    for (const Case& row : cases) {
        const int32_t index = page.list.FindByName(row.name);
        page.list.Select(row.selected ? index : -1);
        page.list.Enable(row.enabled);
        const std::vector<ui::PaintStep> steps = m_renderer->PaintRow(page.list, index);
        ASSERT_GE(steps.size(), 3u);
        EXPECT_EQ(steps[0].colour, (ui::Colour{100, 100, 100}));
        EXPECT_EQ(steps[1].rectangle, steps[0].rectangle.Deflated(1));
        EXPECT_EQ(steps[1].colour, m_renderer->ColourOf(row.background));
        EXPECT_EQ(steps[2].colour, m_renderer->ColourOf(row.text));
        EXPECT_EQ(steps[2].text, row.shown);
        EXPECT_EQ(page.list.HorizontalExtent() > 1000, row.name == wide);
    }
    User().ClickRow(page.list, 0);
    EXPECT_EQ(m_renderer->PaintRow(page.list, 0).back().kind, ui::PaintStep::Kind::dotted_frame);
    page.list.Insert(page.list.Count(), L"not ours");
    EXPECT_EQ(m_renderer->PaintRow(page.list, page.list.Count() - 1)[2].text, L"not ours");
}

}  // namespace
}  // namespace hx
