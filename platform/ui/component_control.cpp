#include "platform/ui/component_control.h"

#include "platform/com/loader.h"

namespace hx::ui {

class ComponentSite {};

ComponentControl::ComponentControl() : Control(ControlKind::component) {}
ComponentControl::~ComponentControl() = default;

HRESULT ComponentControl::Activate(const std::wstring& component_class) {
    CLSID clsid = CLSID_NULL;
    if (!GuidFromText(component_class, clsid)) {
        const HRESULT known = CLSIDFromProgID(component_class.c_str(), &clsid);
        if (FAILED(known)) return known;
    }
    ComPtr<IUnknown> component;
    const HRESULT created =
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, uuid_of<IUnknown>(), component.put_void());
    return FAILED(created) ? created : E_NOINTERFACE;
}

ComPtr<IUnknown> ComponentControl::Component() const {
    return nullptr;
}

void ComponentControl::Detach() {
    Control::Detach();
}

void ComponentControl::Place() {}

}  // namespace hx::ui
