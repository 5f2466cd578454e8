// A settings page in a host's window on no screen, with a scripted scanner and a scripted operator.
#pragma once

#include <array>
#include <set>
#include <span>

#include "core/keys/MRegistryKeyLib.h"
#include "core/locale/MResourceLocale.h"
#include "platform/system/sleep.h"
#include "platform/system/utf8.h"
#include "platform/ui/codes.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/controls/scripted_api.h"
#include "tests/controls/scripted_device.h"
#include "tests/memory_registry.h"

namespace hx {

// A key of the registry
inline constexpr uint32_t kDetectKey = 78;

using Ids = std::set<uint32_t>;

template <class Page>
class ScriptedPage : public WithMemoryRegistry {
protected:
    struct Host final : ui::Window {};

    void SetUp() override {
        WithMemoryRegistry::SetUp();
        SetSleeper([](uint32_t) {});
        ui::SetRenderer(m_renderer);
        m_host.Create(ui::WindowKind::frame, nullptr, {0, 0, 1200, 800});
        m_host.Show(true);
        script.properties = scripted::PropertiesOf(L"device");
        script.values[L"Own"].laser_power = 30;
        script.values[L"Own"].exposure_us = 1250;
        script.frame_rate_hz = 50.9;
        m_owner.attach(ArrayOf(VT_VARIANT, L"Own"));
        arguments = m_owner.get();
    }
    void TearDown() override {
        page.reset();
        m_host.Destroy();
        api.reset();
        EXPECT_EQ(script.alive, 0);
        EXPECT_EQ(m_renderer->WaitCursors(), 0);
        ui::SetRenderer(nullptr);
        SetSleeper(nullptr);
        WithMemoryRegistry::TearDown();
    }

    static void SwitchOn(uint32_t key) {
        EXPECT_TRUE(Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(key).Set(true));
    }
    static SAFEARRAY* ArrayOf(VARTYPE type, std::wstring_view text) {
        SAFEARRAY* const array = SafeArrayCreateVector(type, 3, 1);
        LONG index = 3;
        const Variant value(text);
        VARIANT variant = value.get();
        SafeArrayPutElement(array, &index,
                            type == VT_VARIANT ? static_cast<void*>(&variant) : variant.bstrVal);
        return array;
    }
    void Create() { EXPECT_FALSE(page->Create(MResourceLocale::ResourceModule(), page->kTemplate, &m_host)); }
    void New() {
        page.reset();
        page = std::make_unique<Page>();
        api = Make<scripted::Api>(script).as<IHXApi>();
        page->Initialise(L"driver", L"device", L"", &arguments);
    }
    // A page that is selected, in that state.
    void Open(int32_t state = HXConnected) {
        script.state = state;
        New();
        Create();
        page->Show(true);
        page->OnSelected();
        page->SetApi(api);
        script.calls.clear();
    }
    void Arrive(int32_t state) {
        script.state = state;
        PostWindowMessage(page->Handle(), {WM_HX_CONNECTION_STATE, static_cast<uint64_t>(state), 0});
        DispatchMessages();
    }

    template <class T = ui::Control>
    T& At(uint32_t id) {
        return *page->template FindAs<T>(id);
    }
    ui::IUser& User() { return m_renderer->User(); }
    int32_t Position(uint32_t slider) { return At<ui::TrackBar>(slider).Position(); }
    std::string TextOf(uint32_t id) { return ToUtf8(At(id).Text()); }
    std::string Reason(uint32_t id) {
        const std::wstring& tip = At(id).ToolTip();
        for (uint32_t reason = 2901; reason <= 2906; ++reason) {
            if (tip.ends_with(*page->Module()->String(reason))) return std::to_string(reason);
        }
        return "";
    }
    Ids EnabledOf(std::span<const uint32_t> controls) {
        Ids ids;
        for (const uint32_t id : controls) {
            if (At(id).IsEnabled()) ids.insert(id);
        }
        return ids;
    }
    const scripted::Values& Working() {
        return static_cast<const scripted::Preset&>(*page->WorkingPreset()).values;
    }
    std::string Reported() {
        LONG index = 3;
        Variant value;
        SafeArrayGetElement(arguments, &index, value.put());
        return value.type() == VT_BSTR ? scripted::Text(value->bstrVal) : "no text";
    }

    scripted::Script script;
    SAFEARRAY* arguments = nullptr;
    ui::Script boxes;
    ComPtr<IHXApi> api;
    std::unique_ptr<Page> page;
    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = ui::HeadlessRenderer::Make();

private:
    SafeArray m_owner;
    Host m_host;
};

}  // namespace hx
