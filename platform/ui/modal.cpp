#include "platform/ui/modal.h"

#include <vector>

#include "platform/system/never_destroyed.h"
#include "platform/ui/attachment.h"
#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/renderer.h"
#include "platform/ui/script.h"

namespace hx::ui {
namespace {

// The one in front is the last; 0 is a box or a menu.
std::vector<WindowHandle>& InFront() {
    static NeverDestroyed<std::vector<WindowHandle>> modals;
    return *modals;
}

// What has the focus gets it back when the modal dialog is gone, if it is still there.
class FocusKept {
public:
    explicit FocusKept(const Window* owner) {
        for (const Window* window = owner; window && !m_control; window = window->Parent()) {
            m_control = window->FocusedWithin();
        }
        if (m_control) m_attachment = Attachment(*m_control);
    }
    void Restore() const {
        Dialog* const dialog = m_attachment.Get();
        if (dialog && !dialog->Focused()) dialog->SetFocus(m_control);
    }

private:
    Control* m_control = nullptr;
    Attachment m_attachment;
};

}  // namespace

ModalScope::ModalScope(const Window* dialog) {
    InFront().push_back(dialog ? dialog->Handle() : 0);
}

ModalScope::~ModalScope() {
    InFront().pop_back();
}

bool IsBehindModal(const Window& window) {
    if (InFront().empty()) return false;
    for (const Window* part = &window; part; part = part->Parent()) {
        if (part->Handle() == InFront().back()) return false;
    }
    return true;
}

int32_t Dialog::RunModal(const ModuleHandle& module, uint32_t template_id, Window* owner) {
    constexpr int32_t kNotCreated = -1;
    constexpr auto kCancelled = static_cast<int32_t>(IDCANCEL);
    const WindowHandle handle = Handle();
    const FocusKept focus(owner);
    if (const std::optional<DialogError> error = CreateAs(WindowKind::frame, module, template_id, owner)) {
        OnCreateFailed(*error);
        return kNotCreated;
    }
    if (FromHandle(handle) == this && !HasEnded()) {
        const ModalScope scope(this);
        Show(true);
        if (Script* const script = Script::Current()) {
            script->Run(*this);
        } else {
            CurrentRenderer()->RunModal(*this);
        }
    }
    if (FromHandle(handle) != this) return kCancelled;
    const int32_t result = m_result.value_or(kCancelled);
    Destroy();
    focus.Restore();
    return result;
}

void Dialog::EndDialog(int32_t result) {
    m_result = result;
}

}  // namespace hx::ui
