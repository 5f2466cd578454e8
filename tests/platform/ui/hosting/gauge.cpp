#include "tests/platform/ui/hosting/gauge.h"

#include <stdexcept>

#include "platform/ui/control_object.h"
#include "platform/ui/hwnd.h"

namespace {

using hx::ui::Window;

Script g_script;
Window* g_window = nullptr;
int g_windows = 0;
std::optional<std::string> g_language;

class GaugeWindow final : public Window {
public:
    GaugeWindow() {
        ++g_windows;
        g_window = this;
    }
    ~GaugeWindow() override {
        Destroy();
        --g_windows;
        if (g_window == this) g_window = nullptr;
    }

protected:
    void OnDestroy() override { g_script.steps.push_back("window destroyed"); }
};

std::string Text(const char* name, LONG number) {
    return std::string(name).append(" ").append(std::to_string(number));
}

class Gauge final : public hx::ui::ControlObject<Gauge, hx::FreeThreaded> {
    using Base = hx::ui::ControlObject<Gauge, hx::FreeThreaded>;

public:
    static constexpr hx::ui::ControlClass kControlClass{
        CLSID_Gauge, L"Gauge", OLEMISC_INSIDEOUT | OLEMISC_SETCLIENTSITEFIRST, hx::ui::ToHimetric({96, 48})};

    HRESULT QueryInterface(REFIID iid, void** object) override {
        if (iid == IID_IOleInPlaceObject && g_script.results.contains("no in-place object")) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        return Base::QueryInterface(iid, object);
    }
    HRESULT SetClientSite(IOleClientSite* site) override {
        return g_script.Step(site ? "SetClientSite" : "SetClientSite null",
                             [&] { return Base::SetClientSite(site); });
    }
    HRESULT DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                   const RECT* place) override {
        return g_script.Step(Text("DoVerb", verb),
                             [&] { return Base::DoVerb(verb, message, site, index, parent, place); });
    }
    HRESULT SetObjectRects(const RECT* position, const RECT* clip) override {
        return g_script.Step("SetObjectRects", [&] { return Base::SetObjectRects(position, clip); });
    }
    HRESULT InPlaceDeactivate() override {
        return g_script.Step("InPlaceDeactivate", [&] { return Base::InPlaceDeactivate(); });
    }
    HRESULT Close(DWORD save) override {
        return g_script.Step(Text("Close", static_cast<LONG>(save)), [&] { return Base::Close(save); });
    }

private:
    std::unique_ptr<Window> MakeWindow() override {
        std::unique_ptr<Window> window;
        const HRESULT made = g_script.Step("MakeWindow", [&] {
            window = std::make_unique<GaugeWindow>();
            return S_OK;
        });
        if (made == E_OUTOFMEMORY) throw std::bad_alloc();
        if (made == E_UNEXPECTED) throw std::runtime_error("no window");
        return window;
    }
    HRESULT OnWindowCreated(Window&) override {
        g_language = Embedded().ContainerLanguage();
        return g_script.Step("OnWindowCreated", [] { return S_OK; });
    }
};

class Mute final : public hx::Implements<Mute, hx::FreeThreaded, IUnknown> {
    hx::ModuleLock m_lock;
};

constexpr hx::ClassRow kRows[] = {
    {CLSID_Gauge, L"Hx.Gauge.1", L"Hx.Gauge", L"Gauge", L"Shows", L"Apartment", &hx::CreateObject<Gauge>},
    {CLSID_Mute, L"Hx.Mute.1", L"Hx.Mute", L"Mute", L"Does not", L"Apartment", &hx::CreateObject<Mute>},
};

hx::ModuleClasses& Classes() {
    static hx::ModuleClasses classes(kRows);
    return classes;
}

}  // namespace

Script& Gauges::TheScript() {
    return g_script;
}
Window* Gauges::TheWindow() {
    return g_window;
}
int Gauges::LivingWindows() {
    return g_windows;
}
std::optional<std::string> Gauges::Language() {
    return g_language;
}
bool Gauges::NoneLeft() {
    return Classes().CanUnloadNow() == S_OK;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return Classes().GetClassObject(clsid, iid, object);
}

STDAPI DllCanUnloadNow() {
    return Classes().CanUnloadNow();
}
