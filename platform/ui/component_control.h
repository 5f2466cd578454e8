// The place of a component in a dialog: the template names its class, and it is created and destroyed with
// the dialog. The component is activated in place and shows itself in a window of its own, which follows the
// control. On the thread of the user interface.
#pragma once

#include <string>

#include "platform/com/comptr.h"
#include "platform/com/guid.h"
#include "platform/ui/control.h"

namespace hx::ui {

class ComponentSite;

class HX_PLATFORM_API ComponentControl : public Control {
public:
    ComponentControl();
    ~ComponentControl() override;

    // Creates the class that the template's line names, "{...}" or a ProgID, and activates it. Called by the
    // dialog when it has a view; a failure is the dialog's. Nothing is left of it on failure.
    HRESULT Activate(const std::wstring& component_class);
    // Empty unless active.
    ComPtr<IUnknown> Component() const;

    Window* Inner() const override;

    // Closes it.
    void Detach() override;

protected:
    void Changed(ControlChange change) override;

private:
    ComPtr<ComponentSite> m_site;
};

}  // namespace hx::ui
