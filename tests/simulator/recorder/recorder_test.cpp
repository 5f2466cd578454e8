// Recordings: what the registry's keys ask for, and what is in the file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <thread>

#include "core/keys/MRegistryKeyLib.h"
#include "platform/system/utf8.h"
#include "simulator/recorder/CycleQueue.h"
#include "simulator/recorder/RecordingText.h"
#include "simulator/recorder/TrackingRecorder.h"
#include "simulator/scanner/Scanner.h"
#include "tests/memory_registry.h"
#include "tests/simulator/seen_cycles.h"

namespace {

namespace fs = std::filesystem;
using namespace hx;
using namespace hx::simulator;

struct ReadRecording {
    std::vector<std::string> heads;  // device and area lines, in their order
    std::vector<SeenCycle> cycles;
    bool is_complete = false;
    uint64_t told_cycles = 0;
    uint64_t told_dropped = 0;
};

ReadRecording Read(const fs::path& path) {
    ReadRecording recording;
    std::ifstream in(path);
    std::string line;
    std::getline(in, line);
    if (line != "HXTRACKING 1") return recording;
    while (std::getline(in, line)) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        EXPECT_FALSE(recording.is_complete) << "nothing comes behind the end";
        if (word == "end") {
            words >> recording.told_cycles >> recording.told_dropped;
            recording.is_complete = !words.fail();
        } else if (word == "cycle") {
            SeenCycle& seen = recording.cycles.emplace_back();
            TrackingCycle& cycle = seen.cycle;
            words >> cycle.number >> cycle.time_us >> cycle.plane_number >> cycle.column_count >>
                cycle.saturated_count >> cycle.point_count;
            for (uint32_t i = 0; i < cycle.point_count; ++i) {
                TrackingPoint& point = seen.points.emplace_back();
                in >> point.x_mm >> point.y_mm >> point.signal >> point.column;
            }
            if (cycle.point_count != 0) in.ignore();
        } else {
            recording.heads.push_back(line);
        }
    }
    return recording;
}

class Recorder : public WithMemoryRegistry {
protected:
    enum Key : uint32_t { kEnable = 24, kCustom, kActive, kFolder, kName, kReduce, kMost };

    void SetUp() override {
        WithMemoryRegistry::SetUp();
        m_folder = fs::path(testing::TempDir()) /
                   ("recorder_" + std::to_string(reinterpret_cast<uintptr_t>(this)) + "_" +
                    testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(m_folder);
        Set(kEnable, true);
        Set(kFolder, m_folder.wstring());
    }
    void TearDown() override {
        fs::remove_all(m_folder);
        WithMemoryRegistry::TearDown();
    }

    template <class T>
    static void Set(Key key, const T& value) {
        EXPECT_TRUE(Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(key).Set(value));
    }
    static fs::path Active() {
        std::wstring active;
        Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(kActive).Get(active, std::wstring());
        return ToUtf8(active);
    }
    size_t FileCount() const {
        return fs::exists(m_folder) ? static_cast<size_t>(std::distance(fs::directory_iterator(m_folder), {}))
                                    : 0;
    }

    // A cycle of `count` points, the number of which is in each.
    static void Add(TrackingRecorder& recorder, uint64_t number, uint32_t count = 2,
                    std::wstring_view device = L"HX") {
        const double corners[] = {-1.5, 0, 1.5, 0, 0, 0.1};
        const TrackingArea areas[] = {{4, corners, 3}};
        const std::vector<TrackingPoint> points(count, {0.1f, -1e-7f, 1023, static_cast<uint16_t>(number)});
        recorder.Add(device, areas, {number, -5, 4, 1024, points.data(), count, count});
    }

    void ExpectStopped(TrackingRecorder& recorder) {
        std::wstring reason;
        EXPECT_TRUE(recorder.Stop(reason)) << ToUtf8(reason);
    }

    fs::path m_folder;
    std::wstring m_reason;
};

TEST_F(Recorder, WritesWhatAnObserverOfTheScannerSees) {
    Set(kMost, int32_t{0});
    TrackingRecorder& recorder = TrackingRecorder::Get();
    ASSERT_TRUE(recorder.Start(m_reason)) << ToUtf8(m_reason);
    const auto observer = Make<SeenCycles>();
    {
        Scanner scanner(*FindScannerModel(L"T820"));
        ASSERT_EQ(scanner.SetSurface(L"shiny"), S_OK);
        scanner.SetObserver(observer);
        scanner.SetConnected(true);
        scanner.Initialise();
        observer->WaitFor(12);
    }
    ExpectStopped(recorder);
    const ReadRecording recording = Read(Active());
    ASSERT_TRUE(recording.is_complete);
    EXPECT_EQ(recording.told_cycles, recording.cycles.size());
    std::map<uint64_t, SeenCycle> seen;
    for (const SeenCycle& one : observer->Seen()) seen[one.cycle.number] = one;
    EXPECT_EQ(recording.cycles.size() + recording.told_dropped, seen.size());
    for (const SeenCycle& recorded : recording.cycles) {
        ASSERT_TRUE(seen.contains(recorded.cycle.number));
        const SeenCycle& expected = seen[recorded.cycle.number];
        EXPECT_EQ(recorded.cycle.time_us, expected.cycle.time_us);
        EXPECT_EQ(recorded.cycle.plane_number, expected.cycle.plane_number);
        EXPECT_EQ(recorded.cycle.saturated_count, expected.cycle.saturated_count);
        ASSERT_EQ(recorded.points.size(), expected.points.size());
        for (size_t i = 0; i < recorded.points.size(); ++i) {
            EXPECT_EQ(recorded.points[i].x_mm, expected.points[i].x_mm);
            EXPECT_EQ(recorded.points[i].y_mm, expected.points[i].y_mm);
            EXPECT_EQ(recorded.points[i].signal, expected.points[i].signal);
        }
    }
    const std::vector<std::string> heads = {"device T820", "area 0 -40 -50 -62.5 60 62.5 60 40 -50",
                                            "area 1 -40 -50 -62.5 60 62.5 60 40 -50"};
    EXPECT_EQ(recording.heads, heads);
}

TEST_F(Recorder, KeepsAsManyCyclesAsTheKeysSay) {
    struct Row {
        int32_t reduce;
        int32_t most;
        std::vector<uint64_t> expected;
    };
    const Row rows[] = {
        {0, 0, {0, 1, 2, 3, 4, 5, 6, 7}},   {1, 3, {0, 1, 2}}, {3, 0, {0, 3, 6}}, {3, 2, {0, 3}},
        {-1, -1, {0, 1, 2, 3, 4, 5, 6, 7}},
    };
    for (const Row& row : rows) {
        Set(kReduce, row.reduce);
        Set(kMost, row.most);
        TrackingRecorder recorder;
        Add(recorder, 99);
        ASSERT_TRUE(recorder.Start(m_reason));
        ASSERT_TRUE(recorder.Start(m_reason)) << "a running one goes on";
        for (uint64_t number = 0; number < 8; ++number) Add(recorder, number);
        EXPECT_EQ(recorder.IsRecording(), row.most <= 0);
        ExpectStopped(recorder);
        Add(recorder, 99);
        ExpectStopped(recorder);
        std::vector<uint64_t> numbers;
        for (const SeenCycle& one : Read(Active()).cycles) numbers.push_back(one.cycle.number);
        EXPECT_EQ(numbers, row.expected);
    }
    EXPECT_EQ(FileCount(), std::size(rows)) << "each under a name of its own";
}

TEST_F(Recorder, TellsFromWhichScannerCyclesAre) {
    TrackingRecorder recorder;
    ASSERT_TRUE(recorder.Start(m_reason));
    const wchar_t* const devices[] = {L"HX", L"HX", L"HXHandheld", L"HX"};
    for (const wchar_t* device : devices) Add(recorder, 1, 0, device);
    ExpectStopped(recorder);
    const std::string area = "area 4 -1.5 0 1.5 0 0 0.1";
    const std::vector<std::string> expected = {"device HX", area,        "device HXHandheld",
                                               area,        "device HX", area};
    EXPECT_EQ(Read(Active()).heads, expected);
}

TEST_F(Recorder, HasTheNameThatIsAskedFor) {
    struct Row {
        bool custom;
        std::wstring name;
        fs::path expected;  // empty: made from the time
    };
    const Row rows[] = {
        {true, L"mine.dat", m_folder / "mine.dat"},
        {true, (m_folder / "deep" / "er").wstring(), m_folder / "deep" / "er"},
        {true, L"", {}},
        {false, L"mine2.dat", {}},
    };
    for (const Row& row : rows) {
        Set(kCustom, row.custom);
        Set(kName, row.name);
        TrackingRecorder recorder;
        ASSERT_TRUE(recorder.Start(m_reason)) << ToUtf8(m_reason);
        Add(recorder, 1);
        ExpectStopped(recorder);
        if (row.expected.empty()) {
            EXPECT_EQ(Active().extension(), ".hxtracking");
        } else {
            EXPECT_EQ(Active(), row.expected);
        }
        EXPECT_EQ(Active().parent_path(), row.expected.empty() ? m_folder : row.expected.parent_path());
        EXPECT_TRUE(Read(Active()).is_complete);
    }
}

TEST_F(Recorder, NotEnabledOrNotStoppedLeavesNothing) {
    Set(kEnable, false);
    TrackingRecorder recorder;
    EXPECT_TRUE(recorder.Start(m_reason));
    EXPECT_FALSE(recorder.IsRecording());
    ExpectStopped(recorder);
    EXPECT_EQ(FileCount(), 0u);
    Set(kEnable, true);
    {
        TrackingRecorder forgotten;
        ASSERT_TRUE(forgotten.Start(m_reason));
        Add(forgotten, 1);
        EXPECT_EQ(FileCount(), 1u) << "under its temporary name";
    }
    EXPECT_EQ(FileCount(), 0u);
    EXPECT_TRUE(Active().empty());
}

TEST_F(Recorder, WhatCannotBeWrittenFailsWithAReason) {
    Set(kCustom, true);
    Set(kName, std::wstring(L"in the way"));
    TrackingRecorder recorder;
    fs::create_directories(m_folder / "in the way");
    EXPECT_FALSE(recorder.Start(m_reason));
    EXPECT_NE(m_reason.find(L"in the way"), std::wstring::npos);
    Set(kFolder, (m_folder / "file").wstring());
    std::ofstream(m_folder / "file") << "no folder";
    m_reason.clear();
    EXPECT_FALSE(recorder.Start(m_reason));
    EXPECT_FALSE(m_reason.empty());
    EXPECT_FALSE(recorder.IsRecording());

    // What got into the way while it ran.
    Set(kFolder, m_folder.wstring());
    Set(kName, std::wstring(L"later"));
    ASSERT_TRUE(recorder.Start(m_reason)) << ToUtf8(m_reason);
    fs::create_directories(m_folder / "later");
    m_reason.clear();
    EXPECT_FALSE(recorder.Stop(m_reason));
    EXPECT_FALSE(m_reason.empty());
    ExpectStopped(recorder);
    EXPECT_EQ(FileCount(), 3u) << "the two folders and the file, nothing half done";
}

TEST_F(Recorder, AStoreThatRefusesTheNameHarmsNoRecording) {
    Set(kCustom, true);
    Set(kName, std::wstring(L"kept"));
    RefuseWrites();
    TrackingRecorder recorder;
    ASSERT_TRUE(recorder.Start(m_reason));
    ExpectStopped(recorder);
    EXPECT_TRUE(Read(m_folder / "kept").is_complete);
}

TEST(CycleQueue, DropsWhatFindsNoRoomAndGivesTheRestInOrder) {
    CycleQueue queue(1, 0);
    const auto put = [&](uint64_t number) { return queue.Put(L"HX", {}, {number, 0, 0, 0, nullptr, 0, 0}); };
    uint64_t number = 0;
    while (queue.DroppedCount() < 3) ASSERT_TRUE(put(number++));
    RecordedCycle recorded;
    ASSERT_TRUE(queue.Take(recorded));
    EXPECT_EQ(recorded.cycle.number, 0u);
    ASSERT_TRUE(put(1000)) << "there is room again";
    queue.Close();
    EXPECT_FALSE(put(1001));
    uint64_t taken = 1;
    for (; queue.Take(recorded) && recorded.cycle.number != 1000; ++taken) {
        EXPECT_EQ(recorded.cycle.number, taken);
    }
    EXPECT_EQ(taken, number - 3);
    EXPECT_FALSE(queue.Take(recorded));
}

TEST_F(Recorder, ManyThreadsAddWhileOthersStartAndStop) {
    Set(kMost, int32_t{0});
    TrackingRecorder recorder;
    std::vector<std::thread> threads;
    for (uint64_t thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            for (uint64_t i = 0; i < 200; ++i) Add(recorder, thread * 1000 + i, 20);
        });
    }
    for (int thread = 0; thread < 2; ++thread) {
        threads.emplace_back([&] {
            for (int i = 0; i < 5; ++i) {
                std::wstring reason;
                EXPECT_TRUE(recorder.Start(reason)) << ToUtf8(reason);
                EXPECT_TRUE(recorder.Stop(reason)) << ToUtf8(reason);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const auto& entry : fs::directory_iterator(m_folder)) {
        const ReadRecording recording = Read(entry.path());
        EXPECT_TRUE(recording.is_complete) << entry.path();
        EXPECT_EQ(recording.told_cycles, recording.cycles.size());
    }
}

}  // namespace
