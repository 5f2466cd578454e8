// The preview's window on the thread of the user interface, while lines arrive on others.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <new>
#include <thread>

#include "platform/registry/registry.h"
#include "preview/ColorBlendKey.h"
#include "preview/PreviewWindow.h"
#include "tests/preview/preview_fixture.h"

namespace {

using namespace hx::preview;
using namespace hx_test;
namespace ui = hx::ui;

// How many more allocations of this thread succeed; all if it is negative.
thread_local int t_allocations_left = -1;

}  // namespace

void* operator new(size_t size) {
    void* const memory = t_allocations_left == 0 ? nullptr : std::malloc(std::max<size_t>(size, 1));
    if (memory == nullptr) throw std::bad_alloc();
    if (t_allocations_left > 0) --t_allocations_left;
    return memory;
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
    std::free(memory);
}

namespace {

class WindowTest : public PreviewTest {
protected:
    void SetUp() override { m_window = MakePreview(true); }
    void TearDown() override { m_window.reset(); }

    std::unique_ptr<PreviewWindow> MakePreview(bool blend) {
        auto window = std::make_unique<PreviewWindow>(m_cycles, LoadTexts("en-US"), blend);
        window->Create(ui::WindowKind::child, &m_frame, {0, 0, 240, 280});
        window->Show(true);
        return window;
    }
    void PutCycle(const std::vector<TrackingPoint>& points, int32_t plane = 0) {
        m_cycles->PutCycle(CycleOf(points, plane));
    }
    void AwaitPoints(size_t count) {
        EXPECT_TRUE(DispatchUntil([&] { return m_window->Scene().Points().size() == count; }));
    }
    Painted Paint() { return Painted(m_renderer->Paint(*m_window)); }

    const std::shared_ptr<NewestCycles> m_cycles = std::make_shared<NewestCycles>();
    std::unique_ptr<PreviewWindow> m_window;
};

TEST_F(WindowTest, PointsWithinTheAreaAreDrawnInTheColoursOfTheirSignals) {
    for (const bool dark : {false, true}) {
        for (const double scale : {1.0, 2.0}) {
            SCOPED_TRACE(testing::Message() << dark << " at " << scale);
            m_renderer->SetDark(dark);
            m_renderer->SetScale(scale);
            m_cycles->Clear();
            m_cycles->PutAreas(&kSquare, 1);
            EXPECT_TRUE(DispatchUntil(
                [&] { return m_window->Scene().Points().empty() && !m_window->Scene().Areas().empty(); }));
            const Painted before = Paint();
            PutCycle(
                {{-20, 10, 200, 0}, {0, 50, 1023, 1}, {20, 10, 800, 2}, {90, 10, 800, 3}, {0, 101, 800, 4}});
            AwaitPoints(3);
            const Painted after = Paint();
            EXPECT_EQ(after.pixel_size.width, static_cast<int32_t>(240 * scale));
            const auto found = DifferencesOf(before, after);
            // Three dots, the largest with a radius of not quite two.
            EXPECT_LE(static_cast<double>(found.pixels), 3 * 5 * 5 * scale * scale);
            const SignalColours colours = MakeSignalColours(before.window, before.text_colour, true);
            for (const size_t signal : {200u, 800u, 1023u}) {
                EXPECT_TRUE(found.colours.contains(PixelOf(colours.points[signal]))) << signal;
            }
        }
    }
}

TEST_F(WindowTest, AHintIsShownWithThePictureAndReadOutWhenItLasts) {
    m_window->SetAccessibleName(L"Preview");
    m_cycles->PutAreas(&kSquare, 1);
    PutCycle(std::vector<TrackingPoint>(50, {0, 50, 1023, 0}));
    AwaitPoints(50);
    const std::wstring told = L"Too bright: reduce the exposure or the laser power";
    EXPECT_NE(Paint().text.find(L"Too bright"), std::wstring::npos);
    EXPECT_EQ(m_window->AccessibleName(), L"Preview");
    ASSERT_TRUE(DispatchUntil([&] { return m_window->AccessibleName() == L"Preview: " + told; }));
    m_window->SetAccessibleName(L"View");
    PutCycle(std::vector<TrackingPoint>(60, {0, 50, 500, 0}));
    AwaitPoints(60);
    EXPECT_EQ(Paint().text.find(L"Too bright"), std::wstring::npos);
    PutCycle({});
    ASSERT_TRUE(
        DispatchUntil([&] { return m_window->AccessibleName().starts_with(L"View: No laser line"); }));
}

// Another one has been there for most of the time.
TEST_F(WindowTest, AHintIsReadOutOnlyAfterItHasLastedItself) {
    m_cycles->PutAreas(&kSquare, 1);
    PutCycle(std::vector<TrackingPoint>(50, {0, 50, 1023, 0}));
    AwaitPoints(50);
    const auto first = std::chrono::steady_clock::now();
    DispatchUntil([&] { return std::chrono::steady_clock::now() - first > PreviewWindow::kHintLasts / 2; });
    PutCycle(std::vector<TrackingPoint>(60, {0, 50, 20, 0}));
    const auto put = std::chrono::steady_clock::now();
    ASSERT_TRUE(DispatchUntil([&] { return m_window->AccessibleName().starts_with(L"Too dark"); }));
    EXPECT_GE(std::chrono::steady_clock::now() - put, PreviewWindow::kHintLasts);
}

TEST_F(WindowTest, AHintThatIsCutEndsWithAnEllipsis) {
    m_window->Move({0, 0, 100, 280});
    m_cycles->PutAreas(&kSquare, 1);
    PutCycle(std::vector<TrackingPoint>(50, {0, 50, 1023, 0}));
    AwaitPoints(50);
    EXPECT_NE(Paint().text.find(L'\u2026'), std::wstring::npos);
    m_window->Move({0, 0, 300, 280});
    EXPECT_EQ(Paint().text.find(L'\u2026'), std::wstring::npos);
}

TEST_F(WindowTest, HiddenItTakesNothingAndShownAgainTheNewest) {
    m_cycles->PutAreas(&kSquare, 1);
    PutCycle({{0, 50, 500, 0}});
    AwaitPoints(1);
    m_frame.Show(false);
    hx::DispatchMessages();
    const size_t painted = m_renderer->Invalidations(*m_window);
    for (int i = 0; i < 1000; ++i) PutCycle({{0, 50, 500, 0}, {1, 50, 500, 1}});
    EXPECT_LE(hx::DispatchMessages(), 1u);
    PutCycle({{0, 50, 500, 0}, {1, 50, 500, 1}, {2, 50, 500, 2}});
    EXPECT_EQ(hx::DispatchMessages(), 0u);
    EXPECT_EQ(m_renderer->Invalidations(*m_window), painted);
    m_frame.Show(true);
    AwaitPoints(3);
}

TEST_F(WindowTest, AMomentWithoutMemoryIsMadeUpFor) {
    for (int left = 0; left < 12; ++left) {
        SCOPED_TRACE(left);
        auto window = std::move(m_window);
        window.reset();
        m_window = MakePreview(true);
        m_cycles->PutAreas(&kSquare, 1);
        PutCycle(std::vector<TrackingPoint>(static_cast<size_t>(100 + left), {0, 50, 500, 0}));
        hx::WaitForMessage(PreviewWindow::kShortestInterval);
        t_allocations_left = left;
        EXPECT_NO_THROW(hx::DispatchMessages());
        t_allocations_left = -1;
        PutCycle(std::vector<TrackingPoint>(static_cast<size_t>(200 + left), {0, 50, 500, 0}));
        AwaitPoints(static_cast<size_t>(200 + left));
        EXPECT_EQ(m_window->Scene().Areas().size(), 1u);
    }
}

TEST_F(WindowTest, ClearedItShowsNothingUntilMoreArrives) {
    m_cycles->PutAreas(&kSquare, 1);
    PutCycle({{0, 50, 1023, 0}});
    AwaitPoints(1);
    m_cycles->Clear();
    AwaitPoints(0);
    EXPECT_TRUE(m_window->Scene().Areas().empty());
    EXPECT_EQ(m_window->Scene().CurrentHint(), Hint::none);
    EXPECT_EQ(Paint().text, L"");
    PutCycle({{0, 50, 500, 0}, {0, 50, 500, 1}});
    AwaitPoints(2);
    EXPECT_EQ(m_window->Scene().Areas().size(), 1u);
}

TEST_F(WindowTest, AnotherWindowKnowsTheAreasToo) {
    m_cycles->PutAreas(&kSquare, 1);
    PutCycle({{0, 50, 500, 0}});
    AwaitPoints(1);
    auto before = std::move(m_window);
    m_window = MakePreview(true);
    before.reset();
    PutCycle({{0, 50, 500, 0}, {0, 50, 500, 1}});
    AwaitPoints(2);
}

TEST_F(WindowTest, LinesOfPlanesWithoutAnAreaAreLeftOut) {
    const TrackingArea both[] = {kSquare, {7, kSquare.corners_mm, 4}};
    m_cycles->PutAreas(both, 2);
    PutCycle({{0, 50, 500, 0}}, 0);
    PutCycle({{0, 50, 500, 0}, {0, 50, 500, 1}}, 7);
    PutCycle({{0, 50, 500, 0}}, 3);
    AwaitPoints(3);
    m_cycles->PutAreas(both + 1, 1);
    AwaitPoints(2);
    m_cycles->PutAreas(nullptr, 0);
    AwaitPoints(0);
}

TEST_F(WindowTest, NumbersOutOfReasonDoNoHarm) {
    m_cycles->PutAreas(&kSquare, 1);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    PutCycle({{nan, 50, 500, 0},
              {0, -infinity, 500, 0},
              {infinity, infinity, 500, 0},
              {3e38f, 0, 500, 0},
              {0, 50, 0xFFFF, 0}});
    AwaitPoints(1);
    const std::vector<TrackingPoint> many(1'000'000, {0, 50, 500, 0});
    TrackingCycle cycle = CycleOf(many, 0);
    PutCycle({});
    AwaitPoints(0);
    m_cycles->PutCycle(cycle);
    AwaitPoints(kMostPoints);
    cycle.column_count = 100;
    m_cycles->PutCycle(cycle);
    AwaitPoints(100);
    for (const ui::Rectangle& bounds :
         {ui::Rectangle{0, 0, 0, 0}, {0, 0, 1, 1}, {0, 0, 5, 900}, {0, 0, 900, 5}}) {
        m_window->Move(bounds);
        Paint();
    }
    m_window->Move({0, 0, 30'000, 20'000});
    const Painted huge = Paint();
    EXPECT_LE(static_cast<int64_t>(huge.pixel_size.width) * huge.pixel_size.height, 7681 * 4321);
}

// What each thread delivers is all of one kind, so that a mixture of two would be noticed.
TEST_F(WindowTest, OfManyProducersTheNewestLineIsDrawnWhole) {
    m_cycles->PutAreas(&kSquare, 1);
    std::atomic<bool> ends = false;
    std::vector<std::thread> producers;
    for (uint16_t kind = 1; kind <= 8; ++kind) {
        producers.emplace_back([&, kind] {
            const std::vector<TrackingPoint> points(kind * 100u, {0, 50, kind, 0});
            while (!ends) {
                PutCycle(points);
                if (kind == 1) m_cycles->PutAreas(&kSquare, 1);
                if (kind == 2) m_cycles->Clear();
            }
        });
    }
    const auto start = std::chrono::steady_clock::now();
    size_t whole = 0;
    DispatchUntil([&] {
        const auto& points = m_window->Scene().Points();
        for (const VisiblePoint& point : points) {
            EXPECT_EQ(point.signal * 100u, points.size());
        }
        whole += points.empty() ? 0 : 1;
        return whole > 20;
    });
    ends = true;
    for (std::thread& producer : producers) producer.join();
    PutCycle(std::vector<TrackingPoint>(950, {0, 50, 900, 0}));
    AwaitPoints(950);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_LE(static_cast<double>(m_renderer->Invalidations(*m_window)), taken.count() / 0.033 + 3);
}

TEST_F(WindowTest, ColoursBlendUnlessTheRegistrySaysNo) {
    const auto before = hx::Registry();
    constexpr wchar_t kPath[] = L"Software\\Orvel\\HXAPI4\\Configuration";
    const struct {
        hx::RegistryValue value;
        bool expected;
    } rows[] = {{uint32_t{0}, false}, {uint32_t{1}, true}, {uint32_t{77}, true}, {L"0", true}};
    hx::SetRegistry(hx::MakeMemoryRegistry());
    EXPECT_TRUE(IsColorBlendWanted());
    hx::Registry()->CreateKey(hx::RegistryRoot::kLocalMachine, kPath);
    for (const auto& row : rows) {
        hx::Registry()->SetValue(hx::RegistryRoot::kLocalMachine, kPath, L"ColorBlend", row.value);
        EXPECT_EQ(IsColorBlendWanted(), row.expected);
    }
    hx::SetRegistry(before);
}

}  // namespace
