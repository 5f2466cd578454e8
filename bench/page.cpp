// The pages in a host: from the creation by class to a painted page, from a slider's step to the call of the
// scanner's handle, and what a page takes of the heap. The simulated scanner is connected, and quick.
#include <array>
#include <deque>
#include <filesystem>
#include <memory>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/heap.h"
#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/ICalibrationHandle.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXSimulator.h"
#include "platform/com/loader.h"
#include "platform/com/text_array.h"
#include "platform/com/variant.h"
#include "platform/system/sleep.h"
#include "platform/ui/codes.h"
#include "platform/ui/component_site.h"
#include "platform/ui/controls.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/list_box.h"
#include "platform/ui/load_renderer.h"

namespace hx::bench {
namespace {

constexpr size_t kProfiles = 100;
constexpr ui::Rectangle kPlace{0, 0, 1000, 700};
constexpr LCID kEnglish = 0x0409;
constexpr uint32_t kList = 6000;
constexpr uint32_t kPowerSlider = 207;
constexpr uint32_t kTypeOfScanner = 235;
constexpr double kMostToOpen = 60e-3;
constexpr double kMostToFollow = 100e-6;
constexpr double kMostMegabytes = 10;

struct PageKind {
    const char* name;
    const CLSID& clsid;
    const wchar_t* model;
    bool edits_profiles;
};

constexpr PageKind kKinds[] = {
    {"measurement", CLSID_HXScannerMeasSettingsCtrl, L"HX", true},
    {"handheld", CLSID_HXScannerHandheldMeasSettingsCtrl, L"Handheld", true},
    {"diagnostics", CLSID_HXScannerDiagnosticsCtrl, L"HX", false},
};
constexpr size_t kCount = std::size(kKinds);

class Frame final : public ui::Window {
public:
    Frame() {
        Create(ui::WindowKind::frame, nullptr, kPlace);
        Show(true);
    }
    ~Frame() override { Destroy(); }
};

// A connected scanner that suits the page, with so many profiles.
class Scanner {
public:
    explicit Scanner(const PageKind& kind)
        : m_folder(std::filesystem::temp_directory_path() / (std::string("hxbench_") + kind.name)) {
        CLSID clsid{};
        CLSIDFromProgID(kProgIdHXSimulator, &clsid);
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, uuid_of<IHXApi>(), api.put_void());
        Expect(static_cast<bool>(api), "HX", "a simulated scanner");
        hands = api.as<IHXSimulator>();
        hands->SetPresetsFolder(Bstr(m_folder.wstring()).get());
        hands->SetModel(Bstr(kind.model).get());
        hands->GetDevice(driver.put(), device.put());
        ComPtr<IUnknown> object;
        ComPtr<IErrorInfo> detail;
        api.as<IHXApiInternal>()->CreateCalibrationHandle(driver.get(), IID_ICalibrationHandle, object.put(),
                                                          detail.put());
        const auto handle = object.as<ICalibrationHandle>();
        std::vector<std::wstring> names;
        const SafeArray presets(SafeArrayCreateVector(VT_UNKNOWN, 0, kProfiles));
        for (LONG i = 0; i < static_cast<LONG>(kProfiles); ++i) {
            names.push_back(i == 0 ? L"$DEFAULT" : L"Scan of part " + std::to_wstring(i));
            ComPtr<IDynamicSettingsPreset> preset;
            handle->CreateDynamicSettingsPreset(preset.put());
            SafeArrayPutElement(presets.get(), &i, preset.get());
        }
        Expect(SUCCEEDED(handle->SaveDynamicSettingsPresets(device.get(), TextArray(names).get(),
                                                            presets.get(), Bstr(L"$DEFAULT").get())),
               "HX", "the profiles");
        hands->SetConnectionState(HXConnected, FALSE);
    }

    Scanner(const Scanner&) = delete;
    Scanner& operator=(const Scanner&) = delete;
    ~Scanner() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    size_t CallsSinceTheLastTime() const {
        Bstr json;
        hands->TakeCalls(json.put());
        return json.view().size();
    }

    ComPtr<IHXApi> api;
    ComPtr<IHXSimulator> hands;
    Bstr driver, device;

private:
    const std::filesystem::path m_folder;
};

// A host's page, shown.
class Page {
public:
    Page(const PageKind& kind, const Scanner& scanner, const Frame& frame)
        : m_arguments(SafeArrayCreateVector(VT_VARIANT, 0, 1)) {
        CoCreateInstance(kind.clsid, nullptr, CLSCTX_INPROC_SERVER, uuid_of<DHXConfigCtrl>(),
                         m_control.put_void());
        Expect(static_cast<bool>(m_control), "HX", "a page");
        LONG first = 0;
        VARIANT profile = m_profile.get();
        SafeArrayPutElement(m_arguments.get(), &first, &profile);
        m_array = m_arguments.get();
        if (kind.edits_profiles) {
            m_control->Initialise(scanner.driver.get(), scanner.device.get(), nullptr, &m_array);
        }
        m_control->SetHXApi(scanner.api.get());
        m_control->OnSelected();
        Expect(SUCCEEDED(m_site->Open(m_control.as<IOleObject>(), frame, kPlace, true)), "HX", "its window");
        m_dialog = m_site->ComponentWindow()->Children().front()->AsDialog();
        const bool shows = kind.edits_profiles
                               ? At<ui::ListBox>(kList).Count() == static_cast<int32_t>(kProfiles)
                               : At<ui::Control>(kTypeOfScanner).Text().starts_with(L"HX");
        Expect(shows, "HX", "the profiles, or the scanner");
    }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;
    ~Page() {
        // As a host that closes without saving.
        m_site->Close();
    }

    template <class T>
    T& At(uint32_t id) const {
        return *m_dialog->FindAs<T>(id);
    }
    ui::Window& Preview() const { return *m_dialog->Children().front(); }

private:
    const Variant m_profile{std::wstring_view(L"$DEFAULT")};
    const SafeArray m_arguments;
    SAFEARRAY* m_array = nullptr;
    ComPtr<DHXConfigCtrl> m_control;
    const ComPtr<ui::ComponentSite> m_site = Make<ui::ComponentSite>(kEnglish);
    ui::Dialog* m_dialog = nullptr;
};

struct Figures {
    double open = 0;    // seconds to a painted page
    double api = 0;     // seconds for the scanner API to give out and to store as many profiles
    double follow = 0;  // seconds from a slider's step to the end of the call
    double bytes = 0;   // of the heap
};

// What of it the scanner API does, whose files are not ours.
void ReadAndStore(const Scanner& scanner) {
    ComPtr<IUnknown> object;
    ComPtr<IErrorInfo> detail;
    scanner.api.as<IHXApiInternal>()->CreateCalibrationHandle(scanner.driver.get(), IID_ICalibrationHandle,
                                                              object.put(), detail.put());
    const auto handle = object.as<ICalibrationHandle>();
    SafeArray names, display_names;
    handle->EnumerateDynamicSettingsPresets(scanner.device.get(), names.put(), display_names.put());
    const auto texts = TextsOf(names.get());
    Expect(texts.has_value(), "the scanner API", "the profiles");
    const SafeArray presets(SafeArrayCreateVector(VT_UNKNOWN, 0, static_cast<ULONG>(texts->size())));
    for (LONG i = 0; i < static_cast<LONG>(texts->size()); ++i) {
        ComPtr<IDynamicSettingsPreset> preset;
        handle->GetDynamicSettingsPreset(scanner.device.get(), Bstr((*texts)[static_cast<size_t>(i)]).get(),
                                         preset.put());
        SafeArrayPutElement(presets.get(), &i, preset.get());
    }
    Expect(SUCCEEDED(handle->SaveDynamicSettingsPresets(scanner.device.get(), names.get(), presets.get(),
                                                        Bstr(L"$DEFAULT").get())),
           "the scanner API", "the profiles");
}

void Paint(const PageKind& kind, const Page& page, ui::HeadlessRenderer* headless) {
    // A toolkit paints what it has to; without one that is asked for.
    ui::CurrentRenderer()->Pump();
    if (headless == nullptr || !kind.edits_profiles) return;
    constexpr int32_t kRowsToBeSeen = 30;
    for (int32_t row = 0; row < kRowsToBeSeen; ++row) {
        Expect(!headless->PaintRow(page.At<ui::ListBox>(kList), row).empty(), "HX", "a row");
    }
    headless->Paint(page.Preview());
}

double FollowASlider(Benchmark& benchmark, const Page& page, const Scanner& scanner) {
    auto& slider = page.At<ui::TrackBar>(kPowerSlider);
    int32_t position = 50;
    const auto move = [&] { slider.UserScroll(TB_THUMBTRACK, position = position % 100 + 1); };
    move();
    Expect(scanner.CallsSinceTheLastTime() > 2, "HX", "an activated profile");
    return Compete({{"HX", [&] { scanner.CallsSinceTheLastTime(); }, move}}, benchmark.HowMuch())[0];
}

// Of each page; they take turns.
std::array<Figures, kCount> Measure(Benchmark& benchmark, const std::shared_ptr<ui::IRenderer>& renderer,
                                    ui::HeadlessRenderer* headless) {
    ui::SetRenderer(renderer);
    std::array<Figures, kCount> figures{};
    {
        const Frame frame;
        std::deque<Scanner> scanners;
        std::unique_ptr<Page> page;
        const auto close = [&] {
            page.reset();
            renderer->Pump();
            for (const Scanner& scanner : scanners) scanner.CallsSinceTheLastTime();
        };
        std::vector<Contender> contenders;
        for (const PageKind& kind : kKinds) {
            const Scanner& scanner = scanners.emplace_back(kind);
            contenders.push_back({kind.name, close, [&] {
                                      page = std::make_unique<Page>(kind, scanner, frame);
                                      Paint(kind, *page, headless);
                                  }});
            contenders.push_back({"the scanner API", close, [&] {
                                      if (kind.edits_profiles) ReadAndStore(scanner);
                                  }});
        }
        const std::vector<double> medians = Compete(contenders, benchmark.HowMuch());
        for (size_t i = 0; i < kCount; ++i) {
            const PageKind& kind = kKinds[i];
            figures[i].open = medians[2 * i];
            if (kind.edits_profiles) figures[i].api = medians[2 * i + 1];
            close();
            const size_t before = HeapInUse();
            page = std::make_unique<Page>(kind, scanners[i], frame);
            Paint(kind, *page, headless);
            scanners[i].CallsSinceTheLastTime();
            figures[i].bytes = static_cast<double>(HeapInUse()) - static_cast<double>(before);
            if (kind.edits_profiles) figures[i].follow = FollowASlider(benchmark, *page, scanners[i]);
        }
        close();
    }
    ui::SetRenderer(nullptr);
    return figures;
}

}  // namespace

void ComparePages(Benchmark& benchmark) {
    const Sleeper before = SetSleeper([](uint32_t) {});
    Table table(
        "Pages",
        "From CoCreateInstance to a painted page, of 100 profiles if it edits them, with a simulated scanner "
        "that answers at once, and that beside the measurement page; of that, what the scanner API alone "
        "takes to give out and to store as many profiles, and the rest; a step of a slider to the end of the "
        "call that activates it; and the heap that the open page takes. The 50 ms of rest that a scanner "
        "gets "
        "when it is released are a wait and left out. Without a screen the rest is our own; on a screen the "
        "toolkit's part is in it.",
        {"Page", "Opens", "Beside the first", "Scanner API", "Rest", "Slider's step", "Heap", "Met"});
    const auto add = [&](const std::string& where, const std::array<Figures, kCount>& all, bool counts) {
        for (size_t i = 0; i < kCount; ++i) {
            const Figures& figures = all[i];
            const bool edits = kKinds[i].edits_profiles;
            const double rest = figures.open - figures.api;
            const double megabytes = figures.bytes / 1e6;
            const bool met =
                rest <= kMostToOpen && figures.follow <= kMostToFollow && megabytes <= kMostMegabytes;
            table.Add({kKinds[i].name + where, FormatTime(figures.open),
                       FormatNumber(figures.open / all[0].open, 2), edits ? FormatTime(figures.api) : "-",
                       FormatTime(rest), edits ? FormatTime(figures.follow) : "-",
                       FormatNumber(megabytes, 2) + " MB",
                       !counts ? "-"
                       : met   ? "yes"
                               : "no"});
        }
    };
    const auto headless = ui::HeadlessRenderer::Make();
    add("", Measure(benchmark, headless, headless.get()), true);
    std::wstring reason;
    if (const auto screen = ui::LoadScreenRenderer({true, 1, false}, reason)) {
        add(", with the toolkit", Measure(benchmark, screen, nullptr), false);
    }
    table.Add({"at most", "", "", "", FormatTime(kMostToOpen), FormatTime(kMostToFollow),
               FormatNumber(kMostMegabytes, 0) + " MB", ""});
    benchmark.report.Add(table.Markdown());
    SetSleeper(before);
}

}  // namespace hx::bench
