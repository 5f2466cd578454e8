#include "apps/hxctl/page/page_host.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <utility>

#include "apps/hxctl/page/control_report.h"
#include "apps/hxctl/page/host_answer.h"
#include "apps/hxctl/page/reset_watcher.h"
#include "apps/hxctl/page/script_command.h"
#include "apps/hxctl/scanner/desk.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "platform/system/locale_data.h"
#include "platform/system/sleep.h"
#include "platform/system/utf8.h"
#include "platform/ui/component_control.h"
#include "platform/ui/renderer.h"

namespace hxctl {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{20};
constexpr uint32_t kPause_ms = 1;
constexpr hx::ui::Rectangle kFirstBounds{0, 0, 640, 480};

std::string ModelOf(IHXSimulator& simulator) {
    hx::Bstr model;
    CheckCall("GetModel", simulator.GetModel(model.put()));
    return TextOf(model);
}

}  // namespace

PageHost::PageHost(hx::ComPtr<IHXSimulator> simulator, const std::string& locale, bool bare)
    : m_locale(hx::LcidOf(locale).value()),
      m_locale_tag(locale),
      m_bare(bare),
      m_simulator(std::move(simulator)),
      m_simulators{m_simulator} {
    CheckCall("SetLocale", m_simulator->SetLocale(BstrOf(m_locale_tag).get()));
}

PageHost::~PageHost() {
    for (const auto& [name, page] : m_pages) {
        page->hosted.Close();
        page->frame.Destroy();
    }
    Settle();
}

void PageHost::Add(const std::string& name, const PageName& row) {
    const auto [place, is_new] = m_pages.try_emplace(name);
    if (!is_new) throw Impossible("there is a page \"" + name + "\" already");
    place->second = std::make_unique<ScriptedPage>();
    place->second->row = &row;
    ScriptedPage* const before = std::exchange(m_current, place->second.get());
    const std::shared_ptr<void> back(nullptr, [&](void*) {
        if (before) m_current = before;
    });
    if (m_bare) return;
    Create();
    OpenWindow();
}

void PageHost::Use(const std::string& name) {
    const auto found = m_pages.find(name);
    if (found == m_pages.end()) throw Impossible("there is no page \"" + name + "\"");
    m_current = found->second.get();
}

void PageHost::Create() {
    if (Page().hosted.IsCreated()) throw Impossible("the page is created already");
    const std::string operation = "creating " + hx::ToUtf8(Page().row->prog_id);
    CheckAnswer(operation.c_str(), Page().hosted.Create(Page().row->prog_id));
}

// As large as its dialog wants to be.
void PageHost::OpenWindow() {
    ScriptedPage& page = Page();
    if (Hosted().Dialog()) throw Impossible("the page has a window already");
    if (!page.frame.IsCreated()) {
        page.frame.Create(hx::ui::WindowKind::frame, nullptr, kFirstBounds);
        page.frame.Show(true);
    }
    CheckAnswer("the window", page.hosted.Open(page.frame, kFirstBounds, m_locale));
    const hx::ui::Size size = Dialog().TemplateSize();
    page.frame.Move({0, 0, size.width, size.height});
    page.hosted.Move({0, 0, size.width, size.height});
    WatchPreview();
}

void PageHost::Resize(const hx::ui::Size& size) {
    Dialog();
    if (static_cast<double>(size.width) * size.height > m_most_pixels) {
        throw Impossible("the picture would be too large: it has 33 million pixels at most");
    }
    Page().frame.Move({0, 0, size.width, size.height});
    Hosted().Move({0, 0, size.width, size.height});
}

// What a preview is asked for reaches nobody else.
void PageHost::WatchPreview() const {
    for (hx::ui::Control* const control : Dialog().Controls()) {
        const auto* const place = dynamic_cast<hx::ui::ComponentControl*>(control);
        if (place) ResetWatcher::Watch(place->Component(), m_simulator);
    }
}

hosting::HostedPage& PageHost::Hosted() const {
    if (!Page().hosted.IsCreated()) throw Impossible("the page is not created");
    return Page().hosted;
}

hx::ui::Dialog& PageHost::Dialog() const {
    hx::ui::Dialog* const dialog = Page().hosted.Dialog();
    if (!dialog) throw Impossible("the page has no window");
    return *dialog;
}

hx::ui::Control& PageHost::Control(uint32_t id) const {
    hx::ui::Control* const control = Dialog().Find(id);
    if (!control) throw Impossible("the page has no control " + IdText(id));
    return *control;
}

hx::ui::ListBox& PageHost::ProfileList() const {
    for (hx::ui::Control* const control : Dialog().Controls()) {
        if (auto* const list = dynamic_cast<hx::ui::ListBox*>(control)) return *list;
    }
    throw Impossible("the page has no list of profiles");
}

IHXSimulator& PageHost::Simulator() const {
    return Page().simulator ? *Page().simulator : *m_simulator;
}

hx::ComPtr<IHXSimulator> PageHost::SimulatorOf(const std::string& model) {
    if (model.empty()) return m_simulator;
    const auto known = std::ranges::find_if(
        m_simulators, [&](const hx::ComPtr<IHXSimulator>& each) { return ModelOf(*each) == model; });
    if (known != m_simulators.end()) return m_simulator = *known;
    ScannerRequest request;
    request.model = model;
    Desk desk(request);
    hx::ComPtr<IHXSimulator> made(&desk.Simulator());
    CheckCall("SetLocale", made->SetLocale(BstrOf(m_locale_tag).get()));
    m_simulators.push_back(made);
    return m_simulator = std::move(made);
}

void PageHost::Settle() {
    hx::ui::CurrentRenderer()->Pump();
}

bool PageHost::WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
    const auto end = Clock::now() + patience;
    while (!condition()) {
        if (Clock::now() >= end) return false;
        Settle();
        hx::SleepMilliseconds(kPause_ms);
    }
    Settle();
    return true;
}

// Somebody else waits for the simulator, which cannot be given up.
void PageHost::WaitForEvents() const {
    const auto result = std::make_shared<std::atomic<HRESULT>>(S_FALSE);
    std::thread([result, simulator = hx::ComPtr<IHXSimulator>(&Simulator())]() mutable {
        const HRESULT told = simulator->WaitForEvents();
        simulator.reset();
        result->store(told == S_FALSE ? S_OK : told);
    }).detach();
    if (!WaitUntil([&] { return *result != S_FALSE; }, kPatience)) {
        throw Impossible("the simulator has not told its events after 20 seconds");
    }
    CheckCall("WaitForEvents", *result);
}

}  // namespace hxctl
