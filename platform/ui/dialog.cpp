#include "platform/ui/dialog.h"

#include <algorithm>
#include <set>

#include "platform/ui/codes.h"
#include "platform/ui/component_control.h"
#include "platform/ui/dialog_kinds.h"
#include "platform/ui/dialog_units.h"
#include "platform/ui/renderer.h"

namespace hx::ui {
namespace {

DialogError ErrorOf(DialogError::Reason reason, const DialogControl& line) {
    return {reason, {}, 0, line.id, line.window_class, 0};
}

Rectangle OnScreen(const Window& window) {
    Rectangle bounds = window.Bounds();
    const Window* part = &window;
    while (part->Kind() == WindowKind::child && part->Parent()) {
        part = part->Parent();
        bounds = bounds.Moved(part->Bounds().left, part->Bounds().top);
    }
    return bounds;
}

// A frame comes up in the middle of its owner.
Rectangle PlaceOf(const Rectangle& bounds, WindowKind kind, const Window* parent) {
    if (kind == WindowKind::child || !parent) return bounds;
    const Rectangle owner = OnScreen(*parent);
    const int32_t left = owner.left + (owner.Width() - bounds.Width()) / 2;
    const int32_t top = owner.top + (owner.Height() - bounds.Height()) / 2;
    return {left, top, left + bounds.Width(), top + bounds.Height()};
}

}  // namespace

const wchar_t* DialogError::NameOf(Reason reason) {
    switch (reason) {
        case Reason::no_window:
            return L"no_window";
        case Reason::no_template:
            return L"no_template";
        case Reason::unknown_kind:
            return L"unknown_kind";
        case Reason::missing_control:
            return L"missing_control";
        case Reason::wrong_kind:
            return L"wrong_kind";
        case Reason::repeated_control:
            return L"repeated_control";
        case Reason::component_failed:
            return L"component_failed";
    }
    return L"";
}

Dialog::~Dialog() {
    Destroy();
    Release();
}

void Dialog::Bind(uint32_t id, Control& control) {
    m_bound[id] = &control;
}

std::optional<DialogError> Dialog::Create(const ModuleHandle& module, uint32_t template_id, Window* parent) {
    return CreateAs(std::nullopt, module, template_id, parent);
}

std::optional<DialogError> Dialog::CreateAs(std::optional<WindowKind> kind, const ModuleHandle& module,
                                            uint32_t template_id, Window* parent) {
    Destroy();
    m_result.reset();
    m_template_id = template_id;
    const WindowHandle handle = Handle();
    std::optional<DialogError> error;
    try {
        error = Make(kind, module, template_id, parent);
    } catch (...) {
        GiveUp();
        throw;
    }
    if (error) {
        if (FromHandle(handle) == this) GiveUp();
        error->module_file_name = module ? module->FileName() : std::wstring();
        error->dialog_id = template_id;
        return error;
    }
    const bool focus_left = OnInitDialog();
    if (FromHandle(handle) != this || !IsCreated()) return std::nullopt;
    if (focus_left && Kind() == WindowKind::frame) SetFocus(NextTabStop(nullptr, false));
    if (FromHandle(handle) != this || !IsCreated()) return std::nullopt;
    if (m_shown_by_template) Show(true);
    return std::nullopt;
}

// Everything but what the derived class does; what a failure leaves behind, GiveUp takes away.
std::optional<DialogError> Dialog::Make(std::optional<WindowKind> kind, const ModuleHandle& module,
                                        uint32_t template_id, Window* parent) {
    using Reason = DialogError::Reason;
    const std::map<uint32_t, DialogTemplate> none;
    const std::map<uint32_t, DialogTemplate>& dialogs = module ? module->GetResources().dialogs : none;
    const auto found = dialogs.find(template_id);
    if (found == dialogs.end()) return DialogError{Reason::no_template, {}, 0, 0, {}, 0};
    const IRenderer* const renderer = CurrentRenderer();
    if (!renderer) return DialogError{Reason::no_window, {}, 0, 0, {}, 0};

    const DialogTemplate& dialog = found->second;
    m_module = module;
    const FontUnits letter = renderer->DialogFont(dialog.font_face, dialog.font_points);
    m_base_units = {letter.average_width, letter.height};
    const WindowKind usual = (dialog.style & WS_POPUP) != 0 ? WindowKind::frame : WindowKind::child;
    m_shown_by_template = !kind && usual == WindowKind::child && (dialog.style & WS_VISIBLE) != 0;
    if (auto error = TakeControls(dialog)) return error;
    AttachControls(dialog);
    SetCaption(dialog.caption);
    const Rectangle bounds = FromDialogUnits(dialog.rectangle);
    m_template_size = bounds.Size();
    Window::Create(kind.value_or(usual), parent, PlaceOf(bounds, kind.value_or(usual), parent));
    if (!IsCreated()) return DialogError{Reason::no_window, {}, 0, 0, {}, 0};
    return ActivateComponents(dialog);
}

std::optional<DialogError> Dialog::TakeControls(const DialogTemplate& dialog) {
    using Reason = DialogError::Reason;
    std::set<uint32_t> ids;
    std::vector<Control*> controls;
    m_made.clear();
    for (const DialogControl& line : dialog.controls) {
        const std::optional<ControlKind> kind = KindOfLine(line);
        if (!kind) return ErrorOf(Reason::unknown_kind, line);
        if (line.id != kNoControlId && !ids.insert(line.id).second) {
            return ErrorOf(Reason::repeated_control, line);
        }
        const auto bound = m_bound.find(line.id);
        Control* control = bound == m_bound.end() ? nullptr : bound->second;
        if (!control) {
            std::unique_ptr<Control> made = MakeControl(line);
            if (!made) made = MakeControlOf(*kind);
            control = made.get();
            m_made.push_back(std::move(made));
        }
        if (control->Kind() != *kind) return ErrorOf(Reason::wrong_kind, line);
        controls.push_back(control);
    }
    for (const auto& [id, control] : m_bound) {
        if (!ids.contains(id)) return DialogError{Reason::missing_control, {}, 0, id, {}, 0};
    }
    m_controls = std::move(controls);
    return std::nullopt;
}

void Dialog::AttachControls(const DialogTemplate& dialog) {
    for (size_t i = 0; i < m_controls.size(); ++i) {
        const DialogControl& line = dialog.controls[i];
        m_template_bounds.push_back(FromDialogUnits(line.rectangle));
        m_controls[i]->Attach(*this, line, m_template_bounds.back());
        if (m_default_button || (line.style & BS_TYPEMASK) != BS_DEFPUSHBUTTON) continue;
        m_default_button = dynamic_cast<Button*>(m_controls[i]);
    }
}

// A component may do anything, also away with the dialog.
std::optional<DialogError> Dialog::ActivateComponents(const DialogTemplate& dialog) {
    const WindowHandle handle = Handle();
    for (size_t i = 0; i < m_controls.size(); ++i) {
        auto* const control = dynamic_cast<ComponentControl*>(m_controls[i]);
        if (!control) continue;
        HRESULT result = control->Activate(dialog.controls[i].window_class);
        const bool gone = FromHandle(handle) != this || !IsCreated();
        if (SUCCEEDED(result) && gone) result = E_ABORT;
        if (SUCCEEDED(result)) continue;
        DialogError error = ErrorOf(DialogError::Reason::component_failed, dialog.controls[i]);
        error.result = result;
        return error;
    }
    return std::nullopt;
}

void Dialog::GiveUp() {
    Release();
    Remove();
    m_made.clear();
}

// Controls that were made here stay until the view is gone, which still shows them.
void Dialog::Release() {
    m_focused = nullptr;
    m_focus_told = false;
    m_default_button = nullptr;
    for (Control* const control : std::exchange(m_controls, {})) control->Detach();
    m_template_bounds.clear();
    m_module.reset();
}

void Dialog::Forget(Control& control) {
    const auto found = std::find(m_controls.begin(), m_controls.end(), &control);
    if (found == m_controls.end()) return;
    m_template_bounds.erase(m_template_bounds.begin() + (found - m_controls.begin()));
    m_controls.erase(found);
    std::erase_if(m_bound, [&](const auto& entry) { return entry.second == &control; });
    if (m_focused == &control) m_focused = nullptr;
    if (m_default_button == &control) m_default_button = nullptr;
}

void Dialog::OnDestroy() {
    if (!m_result) m_result = static_cast<int32_t>(IDCANCEL);
    const WindowHandle handle = Handle();
    LeaveFocus();
    if (FromHandle(handle) == this) Release();
}

}  // namespace hx::ui
