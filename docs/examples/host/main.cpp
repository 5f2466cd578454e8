// The smallest host of a page: a window with the measurement page in it, a scanner API, and all that a host
// calls between opening its dialog and closing it.
//     minimal_host                on the screen, until its window is closed
//     minimal_host --no-screen    without one: the program moves a slider, closes, and tells what came of it
#include <iostream>
#include <system_error>

#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXApiErrors.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXSettingsObjectMap.h"
#include "hxapi/IHXSimulator.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/loader.h"
#include "platform/system/locale_data.h"
#include "platform/system/utf8.h"
#include "platform/ui/component_site.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/load_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"

namespace {

void Check(const char* call, HRESULT result) {
    if (FAILED(result)) throw std::system_error(result, std::generic_category(), call);
}

template <class I>
hx::ComPtr<I> Create(const wchar_t* prog_id) {
    CLSID clsid;
    Check("CLSIDFromProgID", CLSIDFromProgID(prog_id, &clsid));
    hx::ComPtr<I> made;
    Check("creating", CoCreateInstance(clsid, nullptr, CLSCTX_ALL, hx::uuid_of<I>(), made.put_void()));
    return made;
}

// The host's settings objects. A real host gives them the state in its profile, by ReadXmlBstr.
class Settings final : public hx::Implements<Settings, hx::SingleThreaded, IHXSettingsObjectMap> {
public:
    Settings() {
        const auto factory = Create<IProfileSettingsFactory>(kProgIdHXSettingsFactory);
        Check("settings", factory->CreateSettingsObject(ScannerMeasurementSettings, m_scanner.put()));
    }
    HRESULT STDMETHODCALLTYPE GetSettingsObject(ProfileSettingsType type, IUnknown** settings) override {
        if (!settings) return E_POINTER;
        *settings = nullptr;
        if (type != ScannerMeasurementSettings) return HX_E_NOTFOUND;
        return m_scanner.as<IUnknown>().copy_to(settings);
    }

private:
    hx::ComPtr<IXmlBstrSerializable> m_scanner;
};

class PageWindow final : public hx::ui::Window {
public:
    ~PageWindow() override { Destroy(); }

    void Open(const wchar_t* page, IUnknown* api, BSTR driver, BSTR device) {
        constexpr hx::ui::Rectangle kBounds{0, 0, 720, 560};
        Create(hx::ui::WindowKind::frame, nullptr, kBounds);
        m_page = ::Create<DHXConfigCtrl>(page);
        m_site = hx::Make<hx::ui::ComponentSite>(hx::LcidOf("en-US").value());
        Check("Open", m_site->Open(m_page.as<IOleObject>(), *this, kBounds, true));
        Show(true);
        VARIANT profile = m_profile.get();
        Check("arguments", SafeArrayPutElement(m_arguments, &m_first, &profile));
        const hx::Bstr edit(L"EditDynamicSettingsPresets");
        Check("Initialise", m_page->Initialise(driver, device, edit.get(), &m_arguments));
        Check("SetSettingsObjectMap", m_page->SetSettingsObjectMap(hx::Make<Settings>().get()));
        Check("OnSelected", m_page->OnSelected());
        Check("SetHXApi", m_page->SetHXApi(api));
    }
    // The one that the page has selected.
    std::wstring Profile() {
        Check("arguments", SafeArrayGetElement(m_arguments, &m_first, m_profile.put()));
        return m_profile.type() == VT_BSTR ? m_profile->bstrVal : L"";
    }
    hx::ui::Dialog& Page() const { return *m_site->ComponentWindow()->Children().front()->AsDialog(); }

private:
    void OnSize(const hx::ui::Size& size) override {
        if (m_site) m_site->Move({0, 0, size.width, size.height});
    }
    // The page asks what is to become of edits, and the operator may answer that the window is to stay.
    void OnClose() override {
        BOOL may_close = FALSE;
        if (FAILED(m_page->Save(&may_close)) || static_cast<int16_t>(may_close) != 0) Destroy();
    }
    void OnDestroy() override {
        if (const auto site = std::move(m_site)) site->Close();
    }

    // The page writes into the array as long as it exists.
    const hx::SafeArray m_array{SafeArrayCreateVector(VT_VARIANT, 0, 1)};
    SAFEARRAY* m_arguments = m_array.get();
    LONG m_first = 0;
    hx::Variant m_profile{std::wstring_view(L"$DEFAULT")};
    hx::ComPtr<DHXConfigCtrl> m_page;
    hx::ComPtr<hx::ui::ComponentSite> m_site;
};

// What an operator does: reduces the laser power and closes, and gives a name to what came of the profile.
void Operate(PageWindow& window, hx::ui::IRenderer& renderer, IHXSimulator& scanner) {
    Check("WaitForEvents", scanner.WaitForEvents());
    renderer.Pump();
    hx::Bstr calls;
    scanner.TakeCalls(calls.put());  // those until now are of no interest
    hx::ui::Script answers;
    answers.AnswerModal({.by = hx::ui::Script::Answer::By::enter, .typed = L"Brass"});
    auto& laser_power = dynamic_cast<hx::ui::TrackBar&>(*window.Page().Find(207));
    hx::ui::SetTrackBar(renderer.User(), laser_power, 40);
    renderer.User().Close(window);
    Check("TakeCalls", scanner.TakeCalls(calls.put()));
    std::cout << hx::ToUtf8(window.Profile()) << '\n' << hx::ToUtf8(calls.view()) << '\n';
}

// A real scanner API comes from the measuring-device layer, and tells the same things.
void Run(hx::ui::IRenderer& renderer, bool with_screen) {
    const auto scanner = Create<IHXSimulator>(kProgIdHXSimulator);
    hx::Bstr driver, device;
    Check("GetDevice", scanner->GetDevice(driver.put(), device.put()));
    PageWindow window;
    window.Open(kProgIdHXMeasSettingsCtrl, scanner.as<IHXApi>().get(), driver.get(), device.get());
    Check("Connect", scanner->Connect());
    if (!with_screen) Operate(window, renderer, *scanner);
    // A screen has events of its own besides messages.
    for (; window.IsCreated(); hx::WaitForMessage(std::chrono::milliseconds(10))) renderer.Pump();
}

}  // namespace

int main(int count, char**) try {
    const bool with_screen = count == 1;
    std::wstring reason;
    std::shared_ptr<hx::ui::IRenderer> renderer = hx::ui::HeadlessRenderer::Make();
    if (with_screen) renderer = hx::ui::LoadScreenRenderer({}, reason);
    if (!renderer) throw std::runtime_error(hx::ToUtf8(reason));
    hx::ui::SetRenderer(renderer);
    Run(*renderer, with_screen);
    hx::ui::SetRenderer(nullptr);
    CoFreeUnusedLibraries();
} catch (const std::exception& error) {
    std::cerr << "minimal_host: " << error.what() << '\n';
    return 1;
}
