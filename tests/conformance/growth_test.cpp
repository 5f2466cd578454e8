// Objects that are created and released leave nothing, neither alone nor when eight threads do it at once.
#include <malloc.h>

#include <atomic>
#include <barrier>
#include <cstdlib>
#include <thread>

#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/self_registration.h"
#include "tests/conformance/conformance.h"

namespace {

using hx::ComPtr;

size_t BytesInUse() {
    const struct mallinfo2 all = mallinfo2();
    return all.uordblks + all.hblkhd;
}

// A build that looks for leaks itself has another allocator, and time for fewer rounds.
bool AreBytesCounted() {
    const size_t before = BytesInUse();
    void* volatile const probe = std::malloc(1 << 16);
    const bool counted = BytesInUse() > before;
    std::free(probe);
    return counted;
}

void NothingIsLeftOf(const ClassPromises& row, int creations) {
    const auto factory = Conformance::FactoryOf(row.clsid);  // the library stays
    const auto create = [&](int times) {
        for (int i = 0; i < times; ++i) ASSERT_TRUE(Conformance::Create(row.clsid));
    };
    const bool counted = AreBytesCounted();
    create(100);
    const size_t before = BytesInUse();
    create(counted ? creations : creations / 100);
    // Less than the smallest block for every other object.
    if (counted) {
        EXPECT_LT(BytesInUse(), before + static_cast<size_t>(creations) * 8);
    }
    EXPECT_EQ(CountOf(*factory), 2u);
}

TEST_F(Conformance, NothingIsLeftOfObjectsThatAreGone) {
    ForEachClass([&](const ClassPromises& row) { NothingIsLeftOf(row, row.creations); });
}

// That have no host whose language they would read first.
TEST_F(Conformance, NothingIsLeftOfPagesAlone) {
    const auto simulator = LibraryOf("HXSimulator.so");
    ASSERT_EQ(hx::UnregisterComponentLibrary(simulator), S_OK);
    for (const ClassPromises& row : AllClasses()) {
        if (row.threading_model == L"Apartment") NothingIsLeftOf(row, 100'000);
    }
    EXPECT_EQ(hx::RegisterComponentLibrary(simulator), S_OK);
}

// Each thread has its own objects; the pages, which share what they edit, are all of the one thread of the
// user interface. The libraries go in between, and may be asked to while objects are created.
TEST_F(Conformance, EightThreadsCreateWhileLibrariesComeAndGo) {
    constexpr int kThreads = 8;
    constexpr int kRounds = 20;
    std::barrier<> gate(kThreads + 1);
    std::atomic<int> created{0};
    const auto work = [&](bool is_user_interface) {
        for (int round = 0; round < kRounds; ++round) {
            std::vector<ComPtr<IUnknown>> objects;
            gate.arrive_and_wait();
            for (const ClassPromises& row : AllClasses()) {
                if (row.threading_model == L"Apartment" && !is_user_interface) continue;
                for (int i = 0; i < 3; ++i) objects.push_back(Create(row.clsid));
                // A page that is being made asks the newest scanner API for its language.
                if (objects.back() && row.clsid != CLSID_HXSimulator) {
                    EXPECT_EQ(CountOf(*objects.back()), 1u);
                }
            }
            ++created;
            gate.arrive_and_wait();
            objects.clear();
            gate.arrive_and_wait();
        }
    };
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i == 0);
    for (int round = 0; round < kRounds; ++round) {
        created = 0;
        // New pages release an object of this library.
        auto keeper = Create(CLSID_HXSimulator);
        gate.arrive_and_wait();
        while (created < kThreads) CoFreeUnusedLibraries();
        gate.arrive_and_wait();
        gate.arrive_and_wait();
        keeper.reset();
        CoFreeUnusedLibraries();
        EXPECT_FALSE(IsAnyLoaded());
    }
}

TEST_F(Conformance, EightThreadsShareAFactoryOfSettings) {
    const auto factory = Create<IProfileSettingsFactory>(AllClasses()[1].clsid);
    const auto work = [&] {
        for (int i = 0; i < 2000; ++i) {
            const std::vector<ComPtr<IProfileSettingsFactory>> own(100, factory);
            ComPtr<IXmlBstrSerializable> settings;
            ASSERT_EQ(own[0]->CreateSettingsObject(
                          i % 2 ? ScannerConnectionSettings : ScannerMeasurementSettings, settings.put()),
                      S_OK);
            hx::Bstr text;
            ASSERT_EQ(settings->WriteXmlBstr(text.put()), S_OK);
        }
    };
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 8; ++i) threads.emplace_back(work);
    }
    EXPECT_EQ(CountOf(*factory), 1u);
}

}  // namespace
