// The list of profiles: its order, what is selected and marked, its menu and its looks.
#include <algorithm>
#include <random>

#include "controls/profiles/RowOrder.h"
#include "tests/controls/profiles/profile_page.h"

namespace hx {
namespace {

using ui::PaintStep;
using Prompt = ProfilePage::Prompt;

TEST_F(ProfilesTest, PredefinedComeFirstThenEachByDisplayNameWithoutCase) {
    Fill({L"zebra", L"$DEFAULT=Standard", L"Äpfel", L"äpfel 2", L"apple", L"ZEBRA 2", L"$CUSTOM=user defined",
          L"_x", L"$=100 %d\t&", L"Scan=beta"});
    ProfilePage page;
    page.list.Refill();
    EXPECT_EQ(page.Rows(),
              L"100 %d\t&, Standard, user defined<, _x, apple, beta, zebra, ZEBRA 2, Äpfel, äpfel 2")
        << "'_' follows small letters in no language; the custom profile stands in for one that is not there";
    EXPECT_EQ(page.list.Row(2).name, L"$CUSTOM");
    EXPECT_EQ(page.list.Row(2).user_defined, 0u);
    EXPECT_EQ(page.list.Row(5).user_defined, 1u);
}

TEST_F(ProfilesTest, RefillSelectsAndMarksTheHandlersProfile) {
    struct Case {
        std::vector<std::wstring> presets;
        std::wstring current;
        bool modified;
        std::wstring rows;
    };
    const Case cases[] = {
        {{}, L"A", true, L""},
        {{L"B", L"A"}, L"b", false, L"A, B<"},
        {{L"B", L"A"}, L"b", true, L"A, *B<"},
        {{L"scan", L"SCAN", L"Scan"}, L"SCAN", true, L"scan, *SCAN<, Scan"},
        {{L"B", L"A"}, L"gone", true, L"A<, B"},
        {{L"B", L"$CUSTOM", L"$A"}, L"gone", true, L"$A, $CUSTOM<, B"},
    };
    for (const Case& row : cases) {
        while (m_presets->Count() > 0) m_presets->RemovePreset(std::wstring(m_presets->At(0).name));
        Fill(row.presets);
        ProfilePage page;
        page.current = row.current;
        page.modified = row.modified;
        page.list.Refill();
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
        std::wstring name = i % 5 == 0 ? L"$" : L"";
        name += static_cast<wchar_t>((i % 2 == 0 ? L'a' : L'A') + random() % 26);
        names.push_back(name + std::to_wstring(i));
    }
    Fill(names);
    ProfilePage page;
    page.list.Refill();
    std::map<std::wstring, bool> marks;
    for (int i = 0; i < 500; ++i) {
        const std::wstring& name = names[random() % names.size()];
        const bool modified = random() % 2 == 0;
        marks[name] = modified;
        page.list.MarkModified(name, modified);
        ASSERT_EQ(page.list.SelectedName(), name);
    }
    for (int32_t i = 0; i < page.list.Count(); ++i) {
        const ProfileRow& row = page.list.Row(i);
        EXPECT_EQ(row.modified, marks[row.name]);
        EXPECT_EQ(page.list.RowText(i), (row.modified ? L"*" : L"") + row.name);
        if (i == 0) continue;
        const ProfileRow& before = page.list.Row(i - 1);
        EXPECT_FALSE(RowOrder(row.user_defined != 0, row.name) <
                     RowOrder(before.user_defined != 0, before.name));
    }
    const size_t painted = m_renderer->ImmediatePaints(page.list);
    page.list.MarkModified(L"nobody", true);
    EXPECT_EQ(m_renderer->ImmediatePaints(page.list), painted);
    page.list.MarkModified(3, true);
    EXPECT_EQ(m_renderer->ImmediatePaints(page.list), painted + 1);
    EXPECT_EQ(page.list.SelectByName(L"nobody"), -1);
    EXPECT_EQ(page.list.Selected(), 3) << "an unknown name leaves the selection";
    page.list.ClearRows();
    EXPECT_EQ(page.list.SelectedName(), L"");
}

TEST_F(ProfilesTest, TheMenuFollowsItsRules) {
    struct Case {
        const char* what;
        std::wstring current;
        bool modified;
        Prompt prompt;
        std::wstring refused;
        std::wstring clicked;  // "" outside of the rows, "key" for the keyboard
        uint32_t chosen;
        std::wstring calls;
        std::wstring enabled;  // initials; "none" if there was no menu
        std::wstring rows;
    };
    const std::wstring all = L"$A, One<, Two";
    const Case cases[] = {
        {"predefined", L"$A", false, Prompt::cancel, L"", L"$A", 32773, L"save", L"S", L"$A<, One, Two"},
        {"own", L"One", false, Prompt::cancel, L"", L"One", 32772, L"rename", L"SlR", all},
        {"own, with edits", L"One", true, Prompt::cancel, L"", L"One", 32774, L"discard", L"SDl",
         L"$A, *One<, Two"},
        {"predefined, with edits", L"$A", true, Prompt::cancel, L"", L"$A", 0, L"", L"SD", L"*$A<, One, Two"},
        {"delete", L"Two", false, Prompt::cancel, L"", L"Two", 32771, L"delete", L"SlR", L"$A, One, Two<"},
        {"by key", L"Two", false, Prompt::cancel, L"", L"key", 0, L"", L"SlR", L"$A, One, Two<"},
        {"outside", L"One", true, Prompt::cancel, L"", L"", 32773, L"", L"none", L"$A, *One<, Two"},
        {"another row", L"$A", false, Prompt::cancel, L"", L"One", 0, L"to One", L"SlR", all},
        {"cancelled", L"$A", true, Prompt::cancel, L"", L"One", 32773, L"to One", L"none", L"*$A<, One, Two"},
        {"discarded", L"$A", true, Prompt::discard, L"", L"One", 32771, L"to One, to One, delete", L"SlR",
         all},
        {"refused by the page", L"$A", false, Prompt::cancel, L"One", L"One", 32771, L"to One", L"none",
         L"$A<, One, Two"},
        {"the page goes", L"$A", true, Prompt::close, L"", L"One", 32773, L"to One", L"none", L""},
    };
    Fill({L"$A", L"One", L"Two"});
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        ProfilePage page;
        page.current = row.current;
        page.modified = row.modified;
        page.prompt = row.prompt;
        page.refused = row.refused;
        page.list.Refill();
        m_script.AnswerMenu(row.chosen);
        ui::Point where{5, page.list.RowHeight() * 3 + 2};
        if (row.clicked == L"key") where = {-1, -1};
        const int32_t index = page.list.FindByName(row.clicked);
        if (index >= 0) where.y = page.list.RowHeight() * index + 2;
        User().ContextMenu(page.list, where);
        std::wstring enabled;
        const auto menus = m_script.TakeMenus();
        for (const ui::MenuLine& line : menus.empty() ? std::vector<ui::MenuLine>() : menus[0].lines) {
            if (line.enabled && !line.separator) enabled += line.text[line.text.find(L'&') + 1];
        }
        EXPECT_EQ(menus.empty() ? L"none" : enabled, row.enabled);
        EXPECT_EQ(page.TakeCalls(), row.calls);
        EXPECT_EQ(page.Rows(), row.rows);
        if (row.clicked == L"key") {
            ASSERT_EQ(menus.size(), 1u);
            const ui::Point place{page.list.Bounds().left + 10, page.list.Bounds().top + 10};
            EXPECT_EQ(menus[0].where, place);
        }
        // The answer to a menu that did not come.
        if (menus.empty()) m_script.Run(page, {}, {});
        m_script.TakeMenus();
    }
}

TEST_F(ProfilesTest, KeysDeleteAndRename) {
    Fill({L"One"});
    ProfilePage page;
    page.list.Refill();
    for (const uint32_t key : {VK_BACK, VK_DELETE, VK_F2, VK_HOME}) User().Key(page.list, key);
    EXPECT_EQ(page.TakeCalls(), L"delete, delete, rename");
}

TEST_F(ProfilesTest, RowsAreDrawnByTheirState) {
    using enum ui::SystemColour;
    struct Case {
        std::wstring name;
        bool selected;
        bool enabled;
        ui::SystemColour background;
        ui::SystemColour text;
        std::wstring shown;
    };
    const Case cases[] = {
        {L"$A", false, true, button_face, button_text, L"*$A"},
        {L"$A", true, true, highlight, highlight_text, L"*$A"},
        {L"$A", false, false, button_face, gray_text, L"*$A"},
        {L"One &%s", false, true, window, window_text, L"One &%s"},
        {L"One &%s", true, true, highlight, highlight_text, L"One &%s"},
        {L"One &%s", false, false, window, gray_text, L"One &%s"},
        {L"Two\n\x202E\x7F\xD800\tד", false, true, window, window_text, L"Two\xFFFD\xFFFD\xFFFD\xFFFD\tד"},
    };
    Fill({L"$A", L"One &%s", L"Two\n\x202E\x7F\xD800\tד", std::wstring(10'000, L'W')});
    for (const bool dark : {false, true}) {
        m_renderer->SetDark(dark);
        ProfilePage page;
        page.list.Refill();
        page.list.MarkModified(L"$A", true);
        page.list.Insert(page.list.Count(), L"not ours");
        for (const Case& row : cases) {
            const int32_t index = page.list.FindByName(row.name);
            page.list.Select(row.selected ? index : -1);
            page.list.Enable(row.enabled);
            const std::vector<PaintStep> steps = m_renderer->PaintRow(page.list, index);
            ASSERT_GE(steps.size(), 3u);
            EXPECT_EQ(steps[0].colour, (ui::Colour{100, 100, 100}));
            EXPECT_EQ(steps[1].rectangle, steps[0].rectangle.Deflated(1));
            EXPECT_EQ(steps[1].colour, m_renderer->ColourOf(row.background));
            EXPECT_EQ(steps[2].colour, m_renderer->ColourOf(row.text));
            EXPECT_EQ(steps[2].text, row.shown);
        }
        page.list.Enable(true);
        EXPECT_EQ(m_renderer->PaintRow(page.list, page.list.Count() - 1)[2].text, L"not ours");
        EXPECT_EQ(page.list.HorizontalExtent(), 1000);
        const int32_t wide = page.list.FindByName(std::wstring(10'000, L'w'));
        m_renderer->PaintRow(page.list, wide);
        EXPECT_GT(page.list.HorizontalExtent(), m_renderer->TextExtent(std::wstring(10'000, L'W')).width);
        User().ClickRow(page.list, wide);
        EXPECT_EQ(m_renderer->PaintRow(page.list, wide).back().kind, PaintStep::Kind::dotted_frame);
    }
}

}  // namespace
}  // namespace hx
