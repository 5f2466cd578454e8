// The session with a scanner: an event on its way from the scanner's thread to the page, and long lists of
// presets.
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <optional>
#include <semaphore>
#include <thread>
#include <unordered_map>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "controls/api/cHXApiEventsSinkSimple.h"
#include "controls/presets/PresetsReference.h"
#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/IHXSimulator.h"
#include "platform/com/loader.h"
#include "platform/system/case_fold.h"

namespace hx::bench {
namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// A thread that raises an event whenever it is told to, and remembers when it did.
class EventThread {
public:
    explicit EventThread(std::function<void()> raise)
        : m_raise(std::move(raise)), m_thread([this] {
              for (;;) {
                  m_go.acquire();
                  if (m_ends) return;
                  raised = Clock::now();
                  m_raise();
              }
          }) {}
    EventThread(const EventThread&) = delete;
    EventThread& operator=(const EventThread&) = delete;
    ~EventThread() {
        m_ends = true;
        m_go.release();
        m_thread.join();
    }

    void Go() { m_go.release(); }

    Clock::time_point raised;

private:
    const std::function<void()> m_raise;
    std::binary_semaphore m_go{0};
    bool m_ends = false;
    std::thread m_thread;
};

// A page that notes how long its message was under way.
class Page final : public MessageWindow, public cHXApiEventsSinkSimple<Page> {
public:
    double Receive(EventThread& source) {
        m_source = &source;
        m_latency.reset();
        source.Go();
        while (!m_latency) {
            Expect(WaitForMessage(std::chrono::seconds(10)), "HX", "an event");
            DispatchMessages();
        }
        return *m_latency;
    }

private:
    void OnMessage(const WindowMessage& message) override {
        Expect(message.id == WM_HX_CONNECTION_STATE, "HX", "the event's message");
        m_latency = SecondsSince(m_source->raised);
    }

    EventThread* m_source = nullptr;
    std::optional<double> m_latency;
};

void RaiseState(IUnknown& sink) {
    const ComPtr<IHXApiEvents> events = ComPtr<IUnknown>(&sink).as<IHXApiEvents>();
    VARIANT state{};
    state.vt = VT_I4;
    state.lVal = 1;
    DISPPARAMS arguments{&state, nullptr, 1, 0};
    events->Invoke(DISPID_HXCONNECTIONSTATECHANGED, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr,
                   nullptr, nullptr);
}

// What is beside it: a flag under a lock.
class BareHandOver {
public:
    void Raise() {
        {
            const std::scoped_lock lock(m_mutex);
            m_raised = true;
        }
        m_condition.notify_one();
    }
    double Receive(EventThread& source) {
        source.Go();
        std::unique_lock lock(m_mutex);
        m_condition.wait(lock, [this] { return m_raised; });
        m_raised = false;
        return SecondsSince(source.raised);
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_raised = false;
};

double MedianOf(std::vector<double>& samples) {
    const auto middle = samples.begin() + static_cast<ptrdiff_t>(samples.size() / 2);
    std::ranges::nth_element(samples, middle);
    return *middle;
}

void AddEvents(Benchmark& benchmark) {
    constexpr double kMost = 50e-6;
    Table table(
        "Events",
        "A connection event, from the call of the listener on another thread to the page's handler; the page "
        "waits for it meanwhile. Beside it a flag that is handed over under a lock.",
        {"What", "HX takes", "Hand-over takes", "HX / hand-over", "At most", "Met"});
    Page page;
    const ComPtr<IUnknown> sink = page.MakeEventsSink();
    BareHandOver bare;
    EventThread ours([&] { RaiseState(*sink); });
    EventThread theirs([&] { bare.Raise(); });
    std::vector<double> our_samples;
    std::vector<double> their_samples;
    for (size_t i = 0; i < (benchmark.quick ? 500u : 5000u); ++i) {
        our_samples.push_back(page.Receive(ours));
        their_samples.push_back(bare.Receive(theirs));
    }
    const double our_time = MedianOf(our_samples);
    const double their_time = MedianOf(their_samples);
    table.Add({"an event, median", FormatTime(our_time), FormatTime(their_time),
               FormatNumber(our_time / their_time, 2), FormatTime(kMost), our_time <= kMost ? "yes" : "no"});
    benchmark.report.Add(table.Markdown());
}

void ExpectDone(HRESULT result, const char* what) {
    Expect(SUCCEEDED(result), "HX", what);
}

// A simulated scanner that keeps its presets in a folder of its own.
class StoredPresets {
public:
    explicit StoredPresets(size_t count) {
        std::filesystem::remove_all(m_folder);
        CLSID clsid;
        ExpectDone(CLSIDFromProgID(kProgIdHXSimulator, &clsid), "the simulator's class");
        ExpectDone(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, uuid_of<IHXSimulator>(),
                                    m_simulator.put_void()),
                   "the simulator");
        m_simulator->SetPresetsFolder(Bstr(m_folder.wstring()).get());
        Bstr driver;
        Bstr device;
        ExpectDone(m_simulator->GetDevice(driver.put(), device.put()), "the device");
        m_presets->SetApi(m_simulator.as<IHXApi>());
        m_presets->SetNames(std::wstring(driver.view()), std::wstring(device.view()));
        m_presets->SetHandle(m_presets->CreateCalibrationHandle());
        Fill(device, count);
        m_presets->Load();
        Expect(m_presets->Count() >= count, "HX", "all presets");
    }
    StoredPresets(const StoredPresets&) = delete;
    StoredPresets& operator=(const StoredPresets&) = delete;
    ~StoredPresets() { std::filesystem::remove_all(m_folder); }

    MDynamicSettingsPresets& Manager() { return *m_presets; }
    // The log of calls is not to grow without end.
    void Forget() {
        Bstr calls;
        m_simulator->TakeCalls(calls.put());
    }

    static std::wstring NameOf(size_t i) { return L"Scan of part " + std::to_wstring(i); }

private:
    // Beside those that the scanner was delivered with.
    void Fill(const Bstr& owner, size_t count) {
        m_presets->Load();
        const size_t delivered = m_presets->Count();
        const auto length = static_cast<ULONG>(delivered + count);
        const SafeArray names(SafeArrayCreateVector(VT_BSTR, 0, length));
        const SafeArray presets(SafeArrayCreateVector(VT_UNKNOWN, 0, length));
        for (LONG i = 0; i < static_cast<LONG>(length); ++i) {
            const auto at = static_cast<size_t>(i);
            const bool is_new = at >= delivered;
            const Bstr name(is_new ? NameOf(at - delivered) : m_presets->At(at).name);
            const auto preset = is_new ? m_presets->CreateNewPreset() : m_presets->At(at).preset;
            SafeArrayPutElement(names.get(), &i, name.get());
            SafeArrayPutElement(presets.get(), &i, preset.get());
        }
        ExpectDone(
            m_presets->Handle()->SaveDynamicSettingsPresets(owner.get(), names.get(), presets.get(), nullptr),
            "stored presets");
    }

    const std::filesystem::path m_folder = std::filesystem::temp_directory_path() / "hxbench_presets";
    ComPtr<IHXSimulator> m_simulator;
    PresetsReference m_presets;
};

struct ListTimes {
    double load;
    double save;
};

ListTimes TimeList(Benchmark& benchmark, size_t count) {
    StoredPresets stored(count);
    MDynamicSettingsPresets& manager = stored.Manager();
    const auto forget = [&] { stored.Forget(); };
    const std::vector<double> medians =
        Compete({{"load", forget, [&] { manager.Load(); }}, {"save", forget, [&] { manager.Save(); }}},
                benchmark.HowMuch());
    return {medians[0] / static_cast<double>(count), medians[1] / static_cast<double>(count)};
}

void AddLists(Benchmark& benchmark) {
    constexpr double kMost = 2;
    Table table(
        "Presets",
        "Lists of presets through the presets manager and a simulated scanner, from the file and down to it: "
        "time for each preset. A list of 10,000 does not fit the processor's cache.",
        {"What", "Of 1,000", "Of 10,000", "10,000 / 1,000", "At most", "Met"});
    const ListTimes few = TimeList(benchmark, 1'000);
    const ListTimes many = TimeList(benchmark, 10'000);
    for (const auto& [what, member] :
         {std::pair{"load", &ListTimes::load}, std::pair{"save", &ListTimes::save}}) {
        const double ratio = many.*member / few.*member;
        table.Add({what, FormatTime(few.*member), FormatTime(many.*member), FormatNumber(ratio, 2),
                   FormatNumber(kMost, 1) + " times", ratio <= kMost ? "yes" : "no"});
    }
    benchmark.report.Add(table.Markdown());
}

void AddFinding(Benchmark& benchmark) {
    constexpr size_t kCount = 10'000;
    constexpr size_t kWalked = 100;  // as many as one has the patience for
    StoredPresets stored(kCount);
    MDynamicSettingsPresets& manager = stored.Manager();
    std::vector<std::wstring> names;
    std::unordered_map<std::wstring, size_t> map;
    for (size_t i = 0; i < kCount; ++i) {
        names.push_back(StoredPresets::NameOf(i));
        map.emplace(names.back(), i);
    }
    const auto nothing = [] {};
    const auto find = [&] {
        for (const std::wstring& name : names)
            Expect(static_cast<bool>(manager.FindPreset(name)), "HX", "a preset");
    };
    const auto look_up = [&] {
        for (const std::wstring& name : names) Expect(map.contains(name), "hash table", "a preset");
    };
    const auto walk = [&] {
        for (size_t i = 0; i < kCount; i += kCount / kWalked) {
            size_t at = 0;
            while (!EqualsWithoutCase(manager.At(at).name, names[i])) ++at;
        }
    };
    const std::vector<double> medians =
        Compete({{"HX", nothing, find}, {"hash table", nothing, look_up}, {"walk", nothing, walk}},
                benchmark.HowMuch());
    Table table("Presets by name", "Each of 10,000 presets found by its name, without regard to case.",
                {"How", "Takes", "HX / it"});
    const double ours = medians[0] / kCount;
    table.Add({"HX", FormatTime(ours), FormatNumber(1, 2)});
    table.Add({"hash table, to the letter", FormatTime(medians[1] / kCount),
               FormatNumber(medians[0] / medians[1], 2)});
    table.Add({"a walk along the list", FormatTime(medians[2] / kWalked),
               FormatNumber(ours / (medians[2] / kWalked), 4)});
    benchmark.report.Add(table.Markdown());
}

}  // namespace

void CompareSessions(Benchmark& benchmark) {
    AddEvents(benchmark);
    AddLists(benchmark);
    AddFinding(benchmark);
}

}  // namespace hx::bench
