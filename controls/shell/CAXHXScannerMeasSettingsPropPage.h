// The property page of the measurement settings' control: a text, since everything is edited on the control
// itself. Made by frames for property pages, by its class; on the thread of the user interface. As of any
// page, calls may come in any order; one that needs what is not there fails.
#pragma once

#include <memory>

#include "platform/com/class_table.h"
#include "platform/com/property_page.h"
#include "platform/ui/dialog.h"

namespace hx {

class CAXHXScannerMeasSettingsPropPage final
    : public Implements<CAXHXScannerMeasSettingsPropPage, SingleThreaded, IPropertyPage> {
public:
    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override;
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, const RECT* bounds, BOOL modal) override;
    HRESULT STDMETHODCALLTYPE Deactivate() override;
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override;
    // Takes any: there is nothing to exchange with them.
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override;
    HRESULT STDMETHODCALLTYPE Show(UINT command) override;
    HRESULT STDMETHODCALLTYPE Move(const RECT* bounds) override;
    HRESULT STDMETHODCALLTYPE IsPageDirty() override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE Apply() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;

private:
    class Window final : public ui::Dialog {};

    bool IsActive() const { return m_window && m_window->IsCreated(); }

    ModuleLock m_module_lock;
    ComPtr<IPropertyPageSite> m_site;
    std::unique_ptr<Window> m_window;  // while active
};

}  // namespace hx
