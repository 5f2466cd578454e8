// Pages that are open at once share what they know of the profiles, and go in any order: what they took from
// the scanner API is given back, what one stored stays stored, and with the last one everything is gone.
#include <algorithm>
#include <deque>

#include "platform/system/sleep.h"
#include "platform/ui/codes.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/controls/hosted/page_kinds.h"

namespace {

using namespace hosted;
namespace ui = hx::ui;

constexpr wchar_t kOwn[] = L"Own 1";
constexpr wchar_t kCustom[] = L"$CUSTOM";
constexpr uint32_t kSaveButton = 284;  // of the question what becomes of edits

class PageOrders : public testing::Test {
protected:
    PageOrders() {
        hx::SetSleeper([](uint32_t) {});
    }
    ~PageOrders() override {
        m_frame.Destroy();
        ui::SetRenderer(nullptr);
        hx::SetSleeper(nullptr);
    }

    // A page for each row of the table.
    struct Pages {
        Pages() : open(PageKinds().size()) {}
        std::deque<hosting::HostedPage> open;
        hosting::HostedPage& operator[](size_t index) { return open[index]; }
    };

    static size_t Count(const std::string& calls, const std::string& operation) {
        size_t count = 0;
        const std::string entry = "\"op\":\"" + operation + "\"";
        for (size_t at = calls.find(entry); at != std::string::npos; at = calls.find(entry, at + 1)) ++count;
        return count;
    }
    bool Open(hosting::HostedPage& page, size_t kind, const wchar_t* profile) {
        return OpenPage(page, PageKinds()[kind], m_frame, m_scanner, profile);
    }
    Values Edit(hosting::HostedPage& page, size_t kind) {
        auto& slider = *page.Dialog()->FindAs<ui::TrackBar>(kExposureSlider);
        const int32_t position = slider.Position() == 4000 ? 6000 : 4000;
        EXPECT_TRUE(ui::SetTrackBar(m_renderer->User(), slider, position));
        EXPECT_EQ(m_script.TakeBoxes().size(), 0u);
        return PageKinds()[kind].Shown(*page.Dialog());
    }
    static bool Saves(hosting::HostedPage& page) {
        bool may_close = false;
        return page.Save(may_close).IsDone() && may_close;
    }
    // "" if the profile is stored so.
    std::string WhatIsWrong(const std::string& name, size_t kind, const Values& values) const {
        const auto stored = m_scanner.Stored();
        const auto found = stored.find(name);
        if (found == stored.end()) return name + " is not stored";
        if (PageKinds()[kind].Seen(found->second.values).IsSame(values)) return "";
        return name + " is stored with " + testing::PrintToString(found->second.values.numbers) +
               " instead of " + testing::PrintToString(values.numbers);
    }
    // A page that no host told of a scanner, while none is connected, finds no name that another one left.
    void ExpectForgottenNames() {
        m_scanner.hands->SetConnectionState(HXNotConnected, FALSE);
        m_scanner.Calls();
        hosting::HostedPage page;
        ASSERT_TRUE(page.Create(PageKinds()[0].prog_id).IsDone());
        ASSERT_TRUE(page.SetApi(m_scanner.api.get()).IsDone() && page.Select().IsDone());
        ASSERT_TRUE(page.Open(m_frame, {0, 0, 1000, 700}, 0x0409).IsDone());
        EXPECT_NE(m_scanner.Calls().find(R"("op":"CreateCalibrationHandle","args":[""])"), std::string::npos);
    }

    // In use before there is a window.
    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = [] {
        auto renderer = ui::HeadlessRenderer::Make();
        ui::SetRenderer(renderer);
        return renderer;
    }();
    Frame m_frame;
    const Scanner m_scanner{"HX", 4};
    ui::Script m_script;
};

// In which pages may be opened: any one first and any one last, each before and behind each other.
std::vector<std::vector<size_t>> Orders(size_t pages) {
    std::vector<size_t> order(pages);
    for (size_t i = 0; i < pages; ++i) order[i] = i;
    std::vector<std::vector<size_t>> orders;
    for (size_t i = 0; i < pages; ++i) {
        orders.push_back(order);
        orders.emplace_back(order.rbegin(), order.rend());
        std::ranges::rotate(order, order.begin() + 1);
    }
    return orders;
}

TEST_F(PageOrders, WhateverOpensAndClosesFirst) {
    const size_t kinds = PageKinds().size();
    const auto settings_pages =
        static_cast<size_t>(std::ranges::count_if(PageKinds(), &PageKind::EditsProfiles));
    const auto before = m_scanner.Stored();
    size_t number = 0, editor = 0;
    for (const std::vector<size_t>& opening : Orders(kinds)) {
        std::vector<size_t> rotated = opening;
        std::ranges::rotate(rotated, rotated.begin() + 1);
        for (const auto& closing : {opening, std::vector(opening.rbegin(), opening.rend()), rotated}) {
            const int32_t state = number++ / 2 % 2 == 0 ? HXConnected : HXNotConnected;
            SCOPED_TRACE(testing::PrintToString(opening) + " closed as " + testing::PrintToString(closing) +
                         ", state " + std::to_string(state));
            m_scanner.hands->SetConnectionState(state, FALSE);
            m_scanner.Calls();
            {
                Pages pages;
                for (const size_t kind : opening) ASSERT_TRUE(Open(pages[kind], kind, kOwn));
                do editor = (editor + 1) % kinds;
                while (!PageKinds()[editor].EditsProfiles());
                const Values edits = Edit(pages[editor], editor);
                for (const size_t kind : closing) {
                    EXPECT_TRUE(Saves(pages[kind]));
                    pages[kind].Close();
                }
                EXPECT_EQ(WhatIsWrong("Own 1", editor, edits), "");
            }
            const std::string calls = m_scanner.Calls();
            EXPECT_EQ(Count(calls, "Advise"), kinds);
            EXPECT_EQ(Count(calls, "Unadvise"), kinds);
            EXPECT_EQ(Count(calls, "CloseHandle"), settings_pages);
            EXPECT_EQ(Count(calls, "ReleaseHandle"), settings_pages);
            EXPECT_EQ(Count(calls, "AcquireHandle"), state == HXConnected ? settings_pages : 0);
            EXPECT_TRUE(IsNothingLeft());
            EXPECT_TRUE(m_script.TakeBoxes().empty() && m_script.TakeModals().empty());
            if (std::ranges::is_sorted(opening)) ExpectForgottenNames();
        }
    }
    auto after = m_scanner.Stored();
    after["Own 1"] = before.at("Own 1");
    EXPECT_EQ(after, before) << "what nobody has edited";
}

// Edits of a profile that another page renames or deletes stay with its name, selected and marked, beside
// what the other page made of it.
TEST_F(PageOrders, EditsOutliveTheirProfile) {
    for (const auto& [edited, other] : {std::pair<size_t, size_t>{0, 1}, {1, 0}}) {
        for (const uint32_t key : {VK_F2, VK_DELETE}) {
            SCOPED_TRACE(std::to_string(edited) + (key == VK_F2 ? " renamed" : " deleted"));
            const std::string own = "Own " + std::to_string(1 + edited + (key == VK_F2 ? 0 : 2));
            const std::wstring name(own.begin(), own.end()), new_name = name + L" renamed";
            Pages pages;
            ASSERT_TRUE(Open(pages[edited], edited, name.c_str()) && Open(pages[other], other, name.c_str()));
            const Values edits = Edit(pages[edited], edited);
            ui::Script::Answer rename{ui::Script::Answer::By::button, IDOK};
            rename.typed = new_name;
            if (key == VK_F2) m_script.AnswerModal(rename);
            m_renderer->User().Key(*pages[other].Dialog()->FindAs<ui::ListBox>(kList), key);
            EXPECT_EQ(m_script.TakeModals().size(), key == VK_F2 ? 1u : 0u);
            m_scanner.hands->Disconnect();
            m_scanner.Settle();
            m_scanner.hands->Connect();
            m_scanner.Settle();
            const auto& list = *pages[edited].Dialog()->FindAs<ui::ListBox>(kList);
            ASSERT_GE(list.Selected(), 0);
            EXPECT_EQ(list.RowText(list.Selected()), L"*" + name);
            EXPECT_TRUE(PageKinds()[edited].Shown(*pages[edited].Dialog()).IsSame(edits));
            EXPECT_TRUE(Saves(pages[edited]));
            EXPECT_EQ(WhatIsWrong(own, edited, edits), "");
            EXPECT_EQ(m_scanner.Stored().contains(own + " renamed"), key == VK_F2);
            EXPECT_TRUE(m_script.TakeBoxes().empty());
        }
    }
}

// The profile that is only there for a while goes with any settings page. Edits of it can still be kept.
TEST_F(PageOrders, EditsOfTheCustomProfileOutliveTheOtherPage) {
    const struct {
        size_t custom, other;  // pages
        bool custom_first;     // opened
        bool custom_closes_first;
    } kCases[] = {{0, 1, true, true},  {0, 1, false, true},  {0, 1, true, false}, {0, 1, false, false},
                  {1, 0, true, false}, {1, 0, false, false}, {1, 0, false, true}};
    size_t number = 0;
    for (const auto& row : kCases) {
        SCOPED_TRACE(++number);
        m_scanner.hands->SetConnectionState(HXConnected, FALSE);
        Pages pages;
        hosting::HostedPage& custom = pages[row.custom];
        hosting::HostedPage& other = pages[row.other];
        ASSERT_TRUE(row.custom_first || Open(other, row.other, kOwn));
        ASSERT_TRUE(Open(custom, row.custom, kCustom));
        ASSERT_TRUE(!row.custom_first || Open(other, row.other, kOwn));
        const Values edits = Edit(custom, row.custom);
        if (!row.custom_closes_first) {
            EXPECT_TRUE(Saves(other));
            other.Close();
        }
        const std::wstring name = L"Kept " + std::to_wstring(number);
        ui::Script::Answer save{ui::Script::Answer::By::button, kSaveButton};
        save.typed = name;
        m_script.AnswerModal(save);
        EXPECT_TRUE(Saves(custom));
        EXPECT_EQ(m_script.TakeModals().size(), 1u);
        EXPECT_EQ(WhatIsWrong("Kept " + std::to_string(number), row.custom, edits), "");
        custom.Close();
        if (row.custom_closes_first) {
            EXPECT_TRUE(Saves(other));
            other.Close();
        }
        EXPECT_FALSE(m_scanner.Stored().contains("$CUSTOM"));
        EXPECT_TRUE(IsNothingLeft() && m_script.TakeBoxes().empty() && m_script.TakeModals().empty());
    }
}

}  // namespace
