// A host may open and close its pages as often as it likes: nothing piles up. HX_CYCLES chooses a longer run,
// whose figures are printed.
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <thread>

#include "platform/system/sleep.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/load_renderer.h"
#include "platform/ui/script.h"
#include "tests/controls/hosted/page_kinds.h"

namespace {

using namespace hosted;

struct Usage {
    size_t threads = 0;
    size_t files = 0;
    size_t heap = 0;      // bytes in use
    size_t resident = 0;  // bytes
};

size_t EntriesOf(const char* folder) {
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<size_t>(std::distance(begin(entries), end(entries)));
}

Usage Now() {
    size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return {EntriesOf("/proc/self/task"), EntriesOf("/proc/self/fd"), mallinfo2().uordblks, pages * 4096};
}

std::ostream& operator<<(std::ostream& out, const Usage& usage) {
    return out << usage.threads << " threads, " << usage.files << " files, " << usage.heap / 1024
               << " KB of heap, " << usage.resident / 1024 << " KB resident";
}

class PageCycles : public testing::Test {
protected:
    void TearDown() override {
        hx::ui::SetRenderer(nullptr);
        hx::SetSleeper(nullptr);
    }

    // The renderer may keep so many bytes, and each page less than a pointer.
    static bool IsAsBefore(const Usage& before, const Usage& after, [[maybe_unused]] size_t kept,
                           [[maybe_unused]] uint64_t cycles) {
        bool same = after.threads <= before.threads && after.files == before.files;
#ifndef __SANITIZE_ADDRESS__
        same = same && after.heap < before.heap + kept + 8 * cycles + 8192;
        same = same && after.resident < before.resident + kept + (1 << 20) + 64 * cycles;
#endif
        return same;
    }

    void Run(const std::shared_ptr<hx::ui::IRenderer>& renderer, uint64_t cycles, size_t kept) {
        hx::SetSleeper([](uint32_t) {});
        hx::ui::SetRenderer(renderer);
        const hx::ui::Script nobody;
        const Scanner scanner("HX");
        const Frame frame;
        scanner.hands->SetConnectionState(HXConnected, FALSE);
        // Each time the first one open is the first one closed.
        const auto cycle = [&] {
            std::deque<hosting::HostedPage> pages;
            for (const PageKind& kind : PageKinds()) {
                hosting::HostedPage& page = pages.emplace_back();
                ASSERT_TRUE(OpenPage(page, kind, frame, scanner, L"Own 1")) << kind.name;
                renderer->Pump();
                EXPECT_TRUE(!kind.EditsProfiles() || page.Dialog()->Find(kExposureSlider)->IsEnabled());
            }
            for (hosting::HostedPage& page : pages) {
                bool may_close = false;
                EXPECT_TRUE(page.Save(may_close).IsDone() && may_close);
                page.Close();
                renderer->Pump();
            }
            EXPECT_NE(scanner.Calls().find("ActivateDynamicSettings"), std::string::npos);
        };
        constexpr uint64_t kFewest = 10;  // until the toolkit has all that it keeps
        for (uint64_t i = 0; i < std::max(cycles / 4, kFewest) && !HasFailure(); ++i) cycle();
        // Other threads may be in the middle of something at either end: what piles up does so every time.
        constexpr int kMostTimes = 3;
        for (int time = 1;; ++time) {
            const Usage before = Now();
            for (uint64_t i = 0; i < cycles && !HasFailure(); ++i) cycle();
            Usage after = Now();
            // A thread that was told to end may still be about to.
            for (int i = 0; i < 1000 && after.threads > before.threads; ++i) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
                after = Now();
            }
            std::cout << "before: " << before << "\nafter:  " << after << std::endl;
            if (HasFailure() || IsAsBefore(before, after, kept, cycles)) return;
            ASSERT_LT(time, kMostTimes) << "something is left behind";
        }
    }
};

TEST_F(PageCycles, LeaveNothingBehind) {
    Run(hx::ui::HeadlessRenderer::Make(), FromEnvironment("HX_CYCLES", 100), 0);
}

#ifndef __SANITIZE_THREAD__
TEST_F(PageCycles, LeaveNothingBehindOnAScreen) {
    std::wstring reason;
    const auto renderer = hx::ui::LoadScreenRenderer({true, 1, false}, reason);
    ASSERT_TRUE(renderer) << std::string(reason.begin(), reason.end());
    // The texts of what is new to each page would be more in a few cycles, and its pictures in one.
    constexpr size_t kByTheToolkit = 64 << 10;
    Run(renderer, FromEnvironment("HX_CYCLES", 100) / 10, kByTheToolkit);
}
#endif

}  // namespace
