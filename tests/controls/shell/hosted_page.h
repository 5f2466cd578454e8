// A settings page inside a host's window, through its component interfaces alone, with the simulated
// scanner API; what it calls there is told as text. Everything that the registry may switch on is on.
#pragma once

#include "core/keys/MRegistryKeyLib.h"
#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/com/safearray.h"
#include "platform/registry/registry.h"
#include "platform/system/sleep.h"
#include "platform/ui/component_site.h"
#include "platform/ui/dialog.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/simulator/api/simulator_fixture.h"

namespace hosted {

namespace ui = hx::ui;

// Of the test program: one for all of its tests.
std::shared_ptr<ui::IRenderer> TestRenderer();

class WithPage : public SimulatorTest {
protected:
    void SetUp() override {
        hx::SetRegistry(hx::MakeMemoryRegistry());
        for (const uint32_t key : {76, 78, 79, 88, 89}) {
            EXPECT_TRUE(Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(key).Set(true));
        }
        ui::SetRenderer(m_renderer);
        SimulatorTest::SetUp();
        s_hands = m_hands.get();
        hx::SetSleeper([](uint32_t time_ms) {
            const hx::Bstr time(L"[" + std::to_wstring(time_ms) + L"]");
            s_hands->LogCall(hx::Bstr(L"page").get(), hx::Bstr(L"wait").get(), time.get());
        });
        m_frame.Create(ui::WindowKind::frame, nullptr, {0, 0, 900, 620});
        m_frame.Show(true);
    }
    void TearDown() override {
        Close();
        m_frame.Destroy();
        hx::DispatchMessages();
        hx::SetSleeper(nullptr);
        SimulatorTest::TearDown();
        ui::SetRenderer(nullptr);
        hx::SetRegistry(nullptr);
    }

    // As a host does it.
    void Create(const wchar_t* prog_id = kProgIdHXMeasSettingsCtrl) {
        CLSID clsid{};
        ASSERT_EQ(CLSIDFromProgID(prog_id, &clsid), S_OK);
        m_site = hx::Make<ui::ComponentSite>(0x409);
        ASSERT_EQ(m_site->Open(clsid, m_frame, {0, 0, 900, 600}, true), S_OK);
        m_page = m_site->Component().as<DHXConfigCtrl>();
        ASSERT_NE(Dialog(), nullptr);
    }
    void Initialise(std::wstring_view profile) {
        m_arguments.attach(SafeArrayCreateVector(VT_VARIANT, 0, 1));
        m_given = m_arguments.get();
        LONG first = 0;
        const hx::Variant name(profile);
        VARIANT value = name.get();
        SafeArrayPutElement(m_given, &first, &value);
        EXPECT_EQ(m_page->Initialise(Text("HXScanner"), Text("HX"), nullptr, &m_given), S_OK);
    }
    bool Save() {
        BOOL answer = 0x70000;
        EXPECT_EQ(m_page->Save(&answer), S_OK);
        EXPECT_TRUE(answer == 0x7FFFF || answer == 0x70000);
        return answer == 0x7FFFF;
    }
    void Close() {
        m_page.reset();
        if (m_site) m_site->Close();
        m_site.reset();
    }
    // What the page has told its host.
    std::string Reported() {
        LONG first = 0;
        hx::Variant value;
        EXPECT_EQ(SafeArrayGetElement(m_given, &first, value.put()), S_OK);
        return hx::ToUtf8(value->bstrVal);
    }
    void Handle() {
        m_hands->WaitForEvents();
        hx::DispatchMessages();
    }
    void Arrive(int32_t state) {
        m_hands->SetConnectionState(state, TRUE);
        Handle();
    }
    void Fail(const char* operation, int32_t times = 1) {
        HXSimulatorFault fault{};
        fault.operation = Text(operation);
        fault.result = E_FAIL;
        fault.times = times;
        EXPECT_EQ(m_hands->InjectFault(&fault), S_OK) << operation;
    }

    ui::Dialog* Dialog() const {
        const auto& windows = m_frame.Children();
        return windows.empty() ? nullptr : windows.front()->Children().front()->AsDialog();
    }
    template <class T = ui::Control>
    T& At(uint32_t id) {
        return *Dialog()->FindAs<T>(id);
    }
    ui::IUser& User() { return m_renderer->User(); }

    // The calls since the last time, one a line, but for those of presets, and of a failing one with an
    // exclamation mark; then the boxes.
    std::string Text() {
        std::string text;
        for (const std::string& call : Calls()) {
            const auto value = [&](const std::string& name) {
                const size_t at = call.find('"' + name + "\":") + name.size() + 3;
                const size_t end = name == "result" ? call.size() - 1
                                   : name == "args" ? call.rfind(",\"result\":")
                                                    : call.find(',', at);
                return call.substr(at, end - at);
            };
            if (value("on").starts_with("\"preset:")) continue;
            std::string line = value("on") + "." + value("op") + value("args");
            std::erase(line, '"');
            // The names that are stored stand before the names that the presets have themselves.
            if (const size_t names = line.find("],["); names != std::string::npos) {
                line.erase(names + 1, line.find(']', names + 1) - names);
            }
            text += line + (value("result") == "0" ? "\n" : " !\n");
        }
        for (const auto& box : script.TakeBoxes()) text += "box: " + hx::ToUtf8(box.text) + "\n";
        return text;
    }
    using SimulatorTest::Text;

    ui::Script script;
    hx::ComPtr<DHXConfigCtrl> m_page;

private:
    struct Frame final : ui::Window {
        ~Frame() override { Destroy(); }
    };

    const std::shared_ptr<ui::IRenderer> m_renderer = TestRenderer();
    Frame m_frame;
    hx::ComPtr<ui::ComponentSite> m_site;
    hx::SafeArray m_arguments;
    SAFEARRAY* m_given = nullptr;
    inline static IHXSimulator* s_hands = nullptr;
};

}  // namespace hosted
