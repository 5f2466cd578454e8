// What the renderer without a screen tells of windows; services; messages that come later.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/services.h"
#include "tests/platform/ui/behaviour_fixture.h"

namespace {

using namespace hx::ui;
using namespace std::chrono_literals;
using hx_test::TestDialog;
using hx_test::TestFrame;

class Headless : public testing::Test {
protected:
    Headless() {
        SetRenderer(renderer);
        frame.Create(WindowKind::frame, nullptr, {0, 0, 400, 300});
        EXPECT_FALSE(page.Create(hx_test::TestModule(), hx_test::kPage, &frame));
    }

    const std::shared_ptr<HeadlessRenderer> renderer = HeadlessRenderer::Make();
    TestFrame frame;
    TestDialog page;
};

TEST_F(Headless, RowsThatChangeUnseenAreShownOnce) {
    constexpr int32_t kRows = 10'000;
    auto& list = *page.FindAs<ListBox>(hx_test::kList);
    const size_t before = renderer->Invalidations(list);
    {
        const RedrawSuspended outer(list);
        const RedrawSuspended inner(list);
        for (int32_t i = 0; i < kRows; ++i) list.Insert(-1, L"row");
        list.Select(kRows - 1);
        EXPECT_EQ(renderer->Invalidations(list), before);
    }
    EXPECT_EQ(renderer->Invalidations(list), before + 1);
    list.Remove(0);
    EXPECT_EQ(renderer->Invalidations(list), before + 2);
    EXPECT_EQ(list.Selected(), kRows - 2);
    list.Invalidate(true);
    EXPECT_EQ(renderer->ImmediatePaints(list), 1u);
    page.Destroy();
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(Headless, ARowIsDrawnInTheColoursOfItsState) {
    auto& list = *page.FindAs<ListBox>(hx_test::kList);
    list.Insert(-1, L"a");
    list.Insert(-1, L"プロファイル");
    list.Select(1);
    EXPECT_EQ(list.RowHeight(), 13);
    EXPECT_EQ(renderer->TextExtent(list.RowText(1)), (Size{72, 13}));
    EXPECT_EQ(list.RowAt({5, 14}), 1);
    list.UserScrolled({0, 13});
    EXPECT_EQ(list.RowAt({5, 1}), 1);
    EXPECT_EQ(list.RowAt({5, 14}), -1);
    for (const bool dark : {false, true}) {
        renderer->SetDark(dark);
        const std::vector<PaintStep> steps = renderer->PaintRow(list, 1);
        ASSERT_EQ(steps.size(), 2u);
        EXPECT_EQ(steps[0].colour, renderer->ColourOf(SystemColour::highlight));
        EXPECT_EQ(steps[0].rectangle, (Rectangle{0, 0, list.Bounds().Width(), 13}));
        EXPECT_EQ(steps[1].text, L"プロファイル");
        EXPECT_EQ(steps[1].colour, renderer->ColourOf(SystemColour::highlight_text));
        EXPECT_EQ(renderer->PaintRow(list, 0)[0].colour, renderer->ColourOf(SystemColour::window));
    }
}

TEST_F(Headless, TheWaitCursorIsShownAsLongAsSomebodyHoldsOne) {
    std::shared_ptr<void> first = ShowWaitCursor();
    const std::shared_ptr<void> second = ShowWaitCursor();
    first.reset();
    EXPECT_EQ(renderer->WaitCursors(), 1);
    const std::shared_ptr<void> third = second;
    EXPECT_EQ(renderer->WaitCursors(), 1);
}

TEST_F(Headless, AModalDialogThatNobodyAnswersWithoutAScriptIsCancelled) {
    TestDialog dialog;
    EXPECT_EQ(dialog.RunModal(hx_test::TestModule(), hx_test::kModal, &page), 2);
    EXPECT_EQ(renderer->Unscripted(), 1U);
    // A dialog that ends before it is shown, and one whose owner goes meanwhile.
    dialog.on_init = [&] { dialog.EndDialog(7); };
    EXPECT_EQ(dialog.RunModal(hx_test::TestModule(), hx_test::kModal, &page), 7);
    dialog.on_init = nullptr;
    Script script;
    script.while_modal = [&](Dialog&) { frame.Destroy(); };
    EXPECT_EQ(dialog.RunModal(hx_test::TestModule(), hx_test::kModal, &page), 2);
    EXPECT_FALSE(page.IsCreated());
    EXPECT_EQ(script.Unanswered(), 0u);
}

TEST_F(Headless, ABoundControlMayBeDestroyedBeforeItsDialog) {
    TestDialog dialog;
    {
        Edit name;
        dialog.Bind(hx_test::kName, name);
        ASSERT_FALSE(dialog.Create(hx_test::TestModule(), hx_test::kModal, &frame));
        EXPECT_TRUE(name.HasFocus());
    }
    EXPECT_EQ(dialog.Find(hx_test::kName), nullptr);
    EXPECT_EQ(dialog.Focused(), nullptr);
}

TEST(Mnemonics, AreMarkedAndTakenOut) {
    struct Case {
        const wchar_t* text;
        const wchar_t* plain;
        wchar_t mnemonic;
    };
    const Case cases[] = {{L"", L"", 0},
                          {L"plain", L"plain", 0},
                          {L"&Save", L"Save", L's'},
                          {L"A && B", L"A & B", 0},
                          {L"A && &B", L"A & B", L'b'},
                          {L"end&", L"end&", 0},
                          {L"&&&&", L"&&", 0},
                          {L"検出(&D)", L"検出(D)", L'd'},
                          {L"&Übung", L"Übung", L'ü'}};
    for (const Case& row : cases) {
        EXPECT_EQ(WithoutMnemonic(row.text), row.plain);
        EXPECT_EQ(MnemonicOf(row.text), row.mnemonic) << row.plain;
    }
}

class Receiver final : public hx::MessageWindow {
public:
    ~Receiver() override = default;
    std::vector<uint32_t> got;

private:
    void OnMessage(const hx::WindowMessage& message) override { got.push_back(message.id); }
};

TEST(DelayedMessages, ComeInTheOrderInWhichTheyAreDue) {
    Receiver receiver;
    auto gone = std::make_unique<Receiver>();
    EXPECT_TRUE(hx::PostWindowMessageAfter(receiver.Handle(), {4}, 60ms));
    EXPECT_TRUE(hx::PostWindowMessageAfter(receiver.Handle(), {2}, 15ms));
    EXPECT_TRUE(hx::PostWindowMessageAfter(receiver.Handle(), {3}, 15ms));
    EXPECT_TRUE(hx::PostWindowMessageAfter(receiver.Handle(), {1}, 0ms));
    EXPECT_TRUE(hx::PostWindowMessageAfter(receiver.Handle(), {5}, std::chrono::milliseconds::max()));
    EXPECT_TRUE(hx::PostWindowMessageAfter(receiver.Handle(), {6}, 10ms));
    EXPECT_TRUE(hx::PostWindowMessageAfter(gone->Handle(), {7}, 10ms));
    hx::DropWindowMessages(receiver.Handle(), 6);
    const hx::WindowHandle handle = gone->Handle();
    gone.reset();
    EXPECT_FALSE(hx::PostWindowMessageAfter(handle, {8}, 1ms));
    while (receiver.got.size() < 4) {
        ASSERT_TRUE(hx::WaitForMessage(60s));
        hx::DispatchMessages();
    }
    EXPECT_EQ(receiver.got, (std::vector<uint32_t>{1, 2, 3, 4}));
}

TEST(DelayedMessages, MayBePostedFromAnyThreadToWindowsThatGo) {
    constexpr uint32_t kThreads = 4;
    constexpr uint32_t kEach = 500;
    Receiver receiver;
    std::atomic<hx::WindowHandle> passing{0};
    std::atomic<uint32_t> running{kThreads};
    std::vector<std::thread> threads;
    for (uint32_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (uint32_t message = 0; message < kEach; ++message) {
                hx::PostWindowMessageAfter(passing, {1}, std::chrono::milliseconds(message % 3));
                hx::PostWindowMessageAfter(receiver.Handle(), {1}, std::chrono::milliseconds(message % 3));
            }
            --running;
        });
    }
    while (running > 0) {
        Receiver window;
        passing = window.Handle();
        hx::DispatchMessages();
    }
    for (std::thread& thread : threads) thread.join();
    while (receiver.got.size() < kThreads * kEach) {
        ASSERT_TRUE(hx::WaitForMessage(60s));
        hx::DispatchMessages();
    }
}

}  // namespace
