// ConfigCtrl: the control of a page of the hardware configuration. It is what the host creates; its page, a
// dialog, is the only child of its window, and gets all calls of the host. On the thread of the user
// interface.
//     extern const ui::FullControlClass kGaugePage;
//     using GaugeCtrl = ConfigCtrl<CGaugeDlg, kGaugePage>;
// The page has kTemplate, SetApi, OnSelected and OnDeselected; SetSettingsObjectMap, CommitOnClose and
// Initialise if the host is to reach them.
//
// Calls come in any order, also while another one runs: a page that asks or tells something dispatches
// messages meanwhile. The control lives at least as long as a call of the host runs. A page whose window has
// gone is at its end: what the host hands over from then on goes to a new one, which the control shows when
// it is activated again.
#pragma once

#include <concepts>

#include "controls/messages/MessageLog.h"
#include "controls/messages/OperatorWords.h"
#include "controls/shell/ConfigDispatch.h"
#include "controls/shell/ControlSupport.h"
#include "controls/shell/ControlWindow.h"
#include "core/locale/MResourceLocale.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXSettingsObjectMap.h"
#include "platform/ui/full_control_object.h"

namespace hx {

template <class Page>
concept TakesSettings = requires(Page& page, ComPtr<IHXSettingsObjectMap> map) {
    page.SetSettingsObjectMap(map);
};
template <class Page>
concept Commits = requires(Page& page) {
    { page.CommitOnClose() } -> std::same_as<bool>;
};
template <class Page>
concept TakesArguments = requires(Page& page, const std::wstring& name, SAFEARRAY** arguments) {
    page.Initialise(name, name, name, arguments);
};

template <class Page, const ui::FullControlClass& kClass>
class ConfigCtrl final
    : public ui::FullControlObject<ConfigCtrl<Page, kClass>, SingleThreaded, DHXConfigCtrl, IDispatch> {
    using Base = ui::FullControlObject<ConfigCtrl, SingleThreaded, DHXConfigCtrl, IDispatch>;

public:
    static constexpr const ui::FullControlClass& kControlClass = kClass;
    static constexpr DispatchType kDispatchType =
        ConfigDispatch<ConfigCtrl>::template Type<TakesArguments<Page>>();

    ConfigCtrl() : m_page(std::make_shared<Page>()) { FollowLanguageOfHost(m_localisation); }
    // A page that is in the middle of something is held by that, and goes later. Its window does not.
    ~ConfigCtrl() override { m_page->Destroy(); }

    // DHXConfigCtrl
    HRESULT STDMETHODCALLTYPE SetSettingsObjectMap(IUnknown* settings) override {
        return Call([&]([[maybe_unused]] auto& page) {
            if constexpr (TakesSettings<Page>) {
                const auto map = ComPtr<IUnknown>(settings).template as<IHXSettingsObjectMap>();
                if (!map) return E_INVALIDARG;
                page.SetSettingsObjectMap(map);
            }
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE OnSelected() override {
        return Call([](auto& page) { return ResultOf([&] { return page.OnSelected(); }); });
    }
    HRESULT STDMETHODCALLTYPE OnDeselected() override {
        return Call([](auto& page) { return ResultOf([&] { return page.OnDeselected(); }); });
    }
    HRESULT STDMETHODCALLTYPE SetHXApi(IUnknown* api) override {
        return Call([&](auto& page) {
            const ComPtr<IUnknown> given(api);
            const ComPtr<IHXApi> taken = given.template as<IHXApi>();
            if (!taken || !given.template as<IHXApiInternal>()) return E_INVALIDARG;
            page.SetApi(taken);
            return S_OK;
        });
    }
    using Base::Save;  // of a stream
    HRESULT STDMETHODCALLTYPE Save(BOOL* may_close) override {
        return Call([&]([[maybe_unused]] auto& page) {
            if constexpr (Commits<Page>) {
                if (!may_close) return E_INVALIDARG;
                WriteAnswer(page.CommitOnClose(), may_close);
            }
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Initialise(BSTR driver_internal_name, BSTR device_internal_name,
                                         BSTR function_name, SAFEARRAY** arguments) override {
        const ComPtr<ConfigCtrl> self(this);
        try {
            const auto pass = [&]([[maybe_unused]] auto& page) {
                if constexpr (TakesArguments<Page>) {
                    page.Initialise(TextOf(driver_internal_name), TextOf(device_internal_name),
                                    TextOf(function_name), arguments);
                    return S_OK;
                } else {
                    return DISP_E_MEMBERNOTFOUND;
                }
            };
            return pass(*CurrentPage());
        } catch (const MException&) {
            throw;
        } catch (...) {
            return AtBoundary([]() -> HRESULT { throw; });
        }
    }

    StockTexts& Texts() { return m_texts; }

private:
    std::unique_ptr<ui::Window> MakeWindow() override {
        return std::make_unique<ControlWindow>(!this->IsInUserMode());
    }
    HRESULT OnWindowCreated(ui::Window& window) override {
        const ComPtr<ConfigCtrl> self(this);
        auto& own = static_cast<ControlWindow&>(window);
        if (own.IsDesigned()) return S_OK;
        const std::shared_ptr<Page> page = CurrentPage();
        m_is_shown = true;
        if (const auto failure = page->Create(MResourceLocale::ResourceModule(), Page::kTemplate, &own)) {
            // It can be tried again.
            m_is_shown = false;
            static MErrorLocation location("ConfigCtrl", "OnWindowCreated");
            location.Set(this, 129);
            LogDialogError(location, *failure);
            return FAILED(failure->result) ? failure->result : E_FAIL;
        }
        // The host may have closed the control meanwhile.
        if (!page->IsCreated()) return E_ABORT;
        page->Move(own.PageBounds());
        page->Show(true);
        return S_OK;
    }
    // The window stays, and the page comes or goes.
    void OnAmbientChange(DISPID property) override {
        if (property != DISPID_AMBIENT_USERMODE && property != DISPID_UNKNOWN) return;
        const ComPtr<ConfigCtrl> self(this);
        const bool is_designed = !this->IsInUserMode();
        auto* const window = static_cast<ControlWindow*>(this->Embedded().Active());
        if (!window || window->IsDesigned() == is_designed) return;
        window->SetDesigned(is_designed);
        if (is_designed) {
            const std::shared_ptr<Page> page = m_page;
            page->Destroy();
        } else if (FAILED(OnWindowCreated(*window)) && this->Embedded().Active() == window) {
            window->SetDesigned(true);
        }
    }
    // There is only the one that shows the properties.
    HRESULT OnVerb(LONG, HWND) override {
        const ComPtr<ConfigCtrl> self(this);
        return ShowProperties(*this, this->Embedded().Active());
    }
    std::wstring VerbName(const ui::ControlVerb& verb) override {
        const std::wstring name = TextOrNothing(kStringProperties);
        return name.empty() ? verb.name : name;
    }

    // The page for a call, which holds it.
    std::shared_ptr<Page> CurrentPage() {
        if (m_is_shown && !m_page->IsCreated()) {
            m_page = std::make_shared<Page>();
            m_is_shown = false;
        }
        return m_page;
    }
    template <class Body>
    HRESULT Call(Body body) noexcept {
        const ComPtr<ConfigCtrl> self(this);
        return AtBoundary([&]() -> HRESULT { return body(*CurrentPage()); });
    }
    // Some pages say how it went.
    template <class Body>
    static HRESULT ResultOf(Body body) {
        if constexpr (std::same_as<decltype(body()), HRESULT>) {
            return body();
        } else {
            body();
            return S_OK;
        }
    }

    // In this order: the page goes before the language that it speaks.
    MLocalisationHelperApi m_localisation;
    StockTexts m_texts;
    std::shared_ptr<Page> m_page;
    bool m_is_shown = false;  // once it has a window, also when that has gone
};

}  // namespace hx
