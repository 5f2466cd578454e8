#include "platform/ui/message_window.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "platform/system/sleep.h"

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kLong = 60s;

class Window final : public hx::MessageWindow {
public:
    using Handler = std::function<void(const hx::WindowMessage&)>;
    explicit Window(Handler handler) : m_handler(std::move(handler)) {}
    ~Window() override = default;

private:
    void OnMessage(const hx::WindowMessage& message) override {
        EXPECT_EQ(std::this_thread::get_id(), m_thread);
        const Handler handler = m_handler;  // which may destroy this window
        handler(message);
    }

    const std::thread::id m_thread = std::this_thread::get_id();
    Handler m_handler;
};

TEST(MessageWindow, MessagesKeepTheirOrderOverAllWindows) {
    std::vector<std::pair<char, uint32_t>> got;
    Window a([&](const hx::WindowMessage& message) {
        got.emplace_back('a', message.id);
        EXPECT_EQ(message.first, ~uint64_t{0});
        EXPECT_EQ(message.second, -5);
    });
    Window b([&](const hx::WindowMessage& message) {
        got.emplace_back('b', message.id);
        if (message.id == 2) hx::PostWindowMessage(a.Handle(), {9, ~uint64_t{0}, -5});
    });
    EXPECT_NE(a.Handle(), b.Handle());
    EXPECT_FALSE(hx::WaitForMessage(0ms));
    hx::PostWindowMessage(a.Handle(), {1, ~uint64_t{0}, -5});
    hx::PostWindowMessage(b.Handle(), {2});
    hx::PostWindowMessage(b.Handle(), {3});
    EXPECT_TRUE(hx::WaitForMessage(0ms));
    EXPECT_EQ(hx::DispatchMessages(), 4u);
    EXPECT_EQ(got, (std::vector<std::pair<char, uint32_t>>{{'a', 1}, {'b', 2}, {'b', 3}, {'a', 9}}));
    EXPECT_EQ(hx::DispatchMessages(), 0u);

    for (const uint32_t id : {4u, 5u, 4u}) hx::PostWindowMessage(a.Handle(), {id, ~uint64_t{0}, -5});
    hx::PostWindowMessage(b.Handle(), {4});
    hx::DropWindowMessages(a.Handle(), 4);
    got.clear();
    EXPECT_EQ(hx::DispatchMessages(), 2u);
    EXPECT_EQ(got, (std::vector<std::pair<char, uint32_t>>{{'a', 5}, {'b', 4}}));
}

TEST(MessageWindow, TakesItsMessagesAlong) {
    int got = 0;
    const auto count = [&](const hx::WindowMessage&) { ++got; };
    auto window = std::make_unique<Window>(count);
    const hx::WindowHandle handle = window->Handle();
    EXPECT_TRUE(hx::PostWindowMessage(handle, {1}));
    window.reset();
    EXPECT_FALSE(hx::PostWindowMessage(handle, {2}));
    EXPECT_FALSE(hx::PostWindowMessage(0, {2}));
    Window next(count);
    EXPECT_NE(next.Handle(), handle);
    EXPECT_FALSE(hx::WaitForMessage(0ms));
    EXPECT_EQ(hx::DispatchMessages(), 0u);
    EXPECT_EQ(got, 0);
}

TEST(MessageWindow, AHandlerMayDispatchMakeAndDestroyWindows) {
    std::vector<uint32_t> got;
    std::unique_ptr<Window> self;
    std::unique_ptr<Window> other = std::make_unique<Window>([](const auto&) { FAIL() << "destroyed"; });
    std::unique_ptr<Window> made;
    self = std::make_unique<Window>([&](const hx::WindowMessage& message) {
        got.push_back(message.id);
        if (message.id == 1) {
            EXPECT_EQ(hx::DispatchMessages(), 2u) << "those behind the first";
        }
        if (message.id != 2) return;
        made = std::make_unique<Window>([&](const hx::WindowMessage& late) { got.push_back(late.id); });
        hx::PostWindowMessage(made->Handle(), {4});
        other.reset();
        self.reset();
    });
    hx::PostWindowMessage(self->Handle(), {1});
    hx::PostWindowMessage(self->Handle(), {2});
    hx::PostWindowMessage(other->Handle(), {3});
    hx::PostWindowMessage(self->Handle(), {3});
    EXPECT_EQ(hx::DispatchMessages(), 1u);
    EXPECT_EQ(got, (std::vector<uint32_t>{1, 2, 4}));
}

TEST(MessageWindow, AnotherThreadsPostsWakeTheOneThatWaits) {
    std::vector<uint32_t> next(4);  // by sender
    Window window([&](const hx::WindowMessage& message) { EXPECT_EQ(message.id, next[message.first]++); });
    std::vector<std::thread> senders;
    constexpr uint32_t kEach = 500;
    senders.reserve(next.size());
    for (uint64_t sender = 0; sender < next.size(); ++sender) {
        senders.emplace_back([sender, handle = window.Handle()] {
            for (uint32_t id = 0; id < kEach; ++id) {
                EXPECT_TRUE(hx::PostWindowMessage(handle, {id, sender}));
                EXPECT_EQ(hx::DispatchMessages(), 0u) << "on the wrong thread";
            }
        });
    }
    for (size_t got = 0; got < next.size() * kEach; got += hx::DispatchMessages()) {
        ASSERT_TRUE(hx::WaitForMessage(kLong));
    }
    for (std::thread& sender : senders) sender.join();
    EXPECT_EQ(next, std::vector<uint32_t>(4, kEach));
}

TEST(MessageWindow, WindowsAndThreadsMayEndWhileOthersPost) {
    std::atomic<hx::WindowHandle> handle{0};
    std::atomic<bool> done{false};
    std::vector<std::thread> senders;
    senders.reserve(3);
    for (int i = 0; i < 3; ++i) {
        senders.emplace_back([&] {
            hx::WindowHandle last = 0;
            for (int times = 0; !done; ++times) {
                const hx::WindowHandle present = handle;
                if (std::exchange(last, present) != present) times = 0;
                // A few each, so that the queue can be emptied.
                if (times < 3) hx::PostWindowMessage(present, {1});
                std::this_thread::yield();
            }
        });
    }
    for (int i = 0; i < 30; ++i) {
        std::thread([&] {
            std::atomic<int> hooked{0};
            const auto hook = [](void* context) { ++*static_cast<std::atomic<int>*>(context); };
            hx::SetMessageHook({hook, &hooked});
            Window kept([](const auto&) {});
            for (int j = 0; j < 20; ++j) {
                Window window([](const auto&) {});
                handle = window.Handle();
                hx::WaitForMessage(kLong);
                hx::DispatchMessages();
            }
            handle = kept.Handle();
            hx::WaitForMessage(kLong);
            hx::SetMessageHook({});  // from here on nobody touches `hooked`
            EXPECT_GE(hooked, 1);
        }).join();
    }
    done = true;
    for (std::thread& sender : senders) sender.join();
}

TEST(MessageWindow, TheHookIsOfTheThreadAndOnlyForTheFirst) {
    Window window([](const auto&) {});
    std::vector<std::thread::id> calls;
    const auto hook = [](void* context) {
        static_cast<std::vector<std::thread::id>*>(context)->push_back(std::this_thread::get_id());
    };
    EXPECT_EQ(hx::SetMessageHook({hook, &calls}).hook, nullptr);
    std::thread::id poster;
    std::thread([&] {
        poster = std::this_thread::get_id();
        EXPECT_EQ(hx::SetMessageHook({}).hook, nullptr) << "another thread's";
        hx::PostWindowMessage(window.Handle(), {1});
        hx::PostWindowMessage(window.Handle(), {2});
    }).join();
    EXPECT_EQ(calls, std::vector{poster});
    EXPECT_EQ(hx::DispatchMessages(), 2u);
    hx::PostWindowMessage(window.Handle(), {3});
    EXPECT_EQ(calls, (std::vector{poster, std::this_thread::get_id()}));
    EXPECT_EQ(hx::SetMessageHook({}).context, &calls);
    hx::DispatchMessages();
    hx::PostWindowMessage(window.Handle(), {4});
    EXPECT_EQ(calls.size(), 2u);
}

std::atomic<uint64_t> g_slept{0};

TEST(Sleep, IsDoneByWhoeverIsSet) {
    const hx::Sleeper count = [](uint32_t milliseconds) { g_slept += milliseconds; };
    EXPECT_EQ(hx::SetSleeper(count), nullptr);
    hx::SleepMilliseconds(4'000'000'000);
    std::thread([] { hx::SleepMilliseconds(5); }).join();
    EXPECT_EQ(g_slept, 4'000'000'005u);
    EXPECT_EQ(hx::SetSleeper(nullptr), count);
    hx::SleepMilliseconds(1);
    EXPECT_EQ(g_slept, 4'000'000'005u);
}

}  // namespace
