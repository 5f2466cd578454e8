#include "platform/ui/component_control.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/com/boundary.h"
#include "platform/com/loader.h"
#include "platform/system/locale_data.h"
#include "platform/ui/component_site.h"
#include "platform/ui/dialog.h"

namespace hx::ui {
namespace {

constexpr std::string_view kLanguageOfModules = "en-US";

// A satellite's file is called as its module's, then "_de-DE.dll"; modules themselves speak one language.
LCID LocaleOf(const ModuleHandle& module) {
    constexpr std::wstring_view kEnding = L".dll";
    const std::wstring_view file = module ? std::wstring_view(module->FileName()) : std::wstring_view();
    const size_t mark = file.find_last_of(L"_/");
    std::optional<uint32_t> locale;
    if (mark != file.npos && file[mark] == L'_' && file.ends_with(kEnding)) {
        const std::wstring_view tag = file.substr(mark + 1, file.size() - kEnding.size() - mark - 1);
        const bool plain = std::all_of(tag.begin(), tag.end(), [](wchar_t c) { return c < 0x80; });
        if (plain) locale = LcidOf(std::string(tag.begin(), tag.end()));
    }
    return locale.value_or(LcidOf(kLanguageOfModules).value_or(0));
}

HRESULT ClassOf(const std::wstring& text, CLSID& clsid) {
    return GuidFromText(text, clsid) ? S_OK : CLSIDFromProgID(text.c_str(), &clsid);
}

}  // namespace

ComponentControl::ComponentControl() : Control(ControlKind::component) {}

ComponentControl::~ComponentControl() {
    if (m_site) m_site->Close();
}

HRESULT ComponentControl::Activate(const std::wstring& component_class) {
    return AtBoundary([&] {
        CLSID clsid = CLSID_NULL;
        const HRESULT known = ClassOf(component_class, clsid);
        if (FAILED(known)) return known;
        const std::wstring name = AccessibleName();
        // The component may do anything meanwhile, also away with this control.
        const ComPtr<ComponentSite> site = Make<ComponentSite>(LocaleOf(Parent()->Module()));
        m_site = site;
        const HRESULT opened = site->Open(clsid, *Parent(), Bounds(), IsVisible());
        if (SUCCEEDED(opened)) site->SetAccessibleName(name);
        return opened;
    });
}

ComPtr<IUnknown> ComponentControl::Component() const {
    return m_site ? m_site->Component() : nullptr;
}

Window* ComponentControl::Inner() const {
    const ComPtr<ComponentSite> site = m_site;
    return site ? site->ComponentWindow() : nullptr;
}

void ComponentControl::Detach() {
    const ComPtr<ComponentSite> site = std::move(m_site);
    Control::Detach();
    if (site) site->Close();
}

void ComponentControl::Changed(ControlChange change) {
    const ComPtr<ComponentSite> site = m_site;
    const Rectangle bounds = Bounds();
    const bool visible = IsVisible();
    const std::wstring name = site ? AccessibleName() : std::wstring();
    Control::Changed(change);
    if (!site) return;
    switch (change) {
        case ControlChange::bounds:
            return site->Move(bounds);
        case ControlChange::visible:
            return site->Show(visible);
        case ControlChange::text:
        case ControlChange::name:
            return site->SetAccessibleName(name);
        default:
            return;
    }
}

}  // namespace hx::ui
