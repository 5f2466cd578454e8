// A page's side of the field-of-view preview: the component that the dialog's template places at control 106.
// On the thread of the user interface.
#pragma once

#include "platform/com/comptr.h"
#include "platform/ui/component_control.h"

namespace hx {

class CScannerPreviewCtrl final : public ui::ComponentControl {
public:
    // What the scanner API feeds with tracking cycles; empty while the dialog is not there.
    ComPtr<IUnknown> Observer() const { return Component(); }
    // It drops what it shows. Throws an MException "CScannerPreviewCtrl.Reset:..." if it cannot.
    void Reset();
};

}  // namespace hx
