#include "controls/shell/CAXHXScannerMeasSettingsPropPage.h"

#include <cstring>

#include "controls/messages/OperatorWords.h"
#include "controls/shell/ControlSupport.h"
#include "controls/shell/PropertyFrame.h"
#include "core/locale/MResourceLocale.h"
#include "platform/com/loader.h"
#include "platform/ui/hwnd.h"

namespace hx {
namespace {

// To be freed with CoTaskMemFree; null without memory.
LPOLESTR CopyOf(const std::wstring& text) {
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    auto* const copy = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (copy) std::memcpy(copy, text.c_str(), bytes);
    return copy;
}

}  // namespace

HRESULT CAXHXScannerMeasSettingsPropPage::SetPageSite(IPropertyPageSite* site) {
    if (site && m_site) return E_UNEXPECTED;
    m_site = ComPtr<IPropertyPageSite>(site);
    return S_OK;
}

HRESULT CAXHXScannerMeasSettingsPropPage::Activate(HWND parent, const RECT* bounds, BOOL) {
    if (!bounds) return E_POINTER;
    if (IsActive()) return E_UNEXPECTED;
    return AtBoundary([&] {
        ui::Window* const owner = ui::Window::FromHandle(ui::ToHandle(parent));
        if (!owner || !owner->IsCreated()) return E_INVALIDARG;
        m_window = std::make_unique<Window>();
        const auto failure =
            m_window->Create(MResourceLocale::ResourceModule(), PropertyFrame::kTemplate, owner);
        if (failure) {
            m_window.reset();
            return E_FAIL;
        }
        m_window->Move(ui::ToRectangle(*bounds));
        return S_OK;
    });
}

HRESULT CAXHXScannerMeasSettingsPropPage::Deactivate() {
    const std::unique_ptr<Window> window = std::move(m_window);
    return window ? S_OK : E_UNEXPECTED;
}

HRESULT CAXHXScannerMeasSettingsPropPage::GetPageInfo(PROPPAGEINFO* info) {
    if (!info) return E_POINTER;
    *info = {info->cb, nullptr, {}, nullptr, nullptr, 0};
    return AtBoundary([&] {
        const auto size = ui::Dialog::SizeOf(MResourceLocale::ResourceModule(), PropertyFrame::kTemplate);
        if (size) info->size = {size->width, size->height};
        info->pszTitle = CopyOf(TextOrNothing(PropertyFrame::kCaption));
        return info->pszTitle ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT CAXHXScannerMeasSettingsPropPage::SetObjects(ULONG count, IUnknown** objects) {
    return count != 0 && !objects ? E_POINTER : S_OK;
}

HRESULT CAXHXScannerMeasSettingsPropPage::Show(UINT command) {
    if (command != SW_HIDE && command != SW_SHOW && command != SW_SHOWNORMAL) return E_INVALIDARG;
    if (!IsActive()) return E_UNEXPECTED;
    return AtBoundary([&] {
        m_window->Show(command != SW_HIDE);
        return S_OK;
    });
}

HRESULT CAXHXScannerMeasSettingsPropPage::Move(const RECT* bounds) {
    if (!bounds) return E_POINTER;
    if (!IsActive()) return E_UNEXPECTED;
    return AtBoundary([&] {
        m_window->Move(ui::ToRectangle(*bounds));
        return S_OK;
    });
}

HRESULT CAXHXScannerMeasSettingsPropPage::TranslateAccelerator(MSG* message) {
    return message ? S_FALSE : E_POINTER;
}

}  // namespace hx
