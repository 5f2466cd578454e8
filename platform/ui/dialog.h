// A dialog: a window with controls, made from a template of a module's resources. A page derives from it,
// binds the controls that it keeps itself, and is told what a person does. On the thread of the user
// interface.
//
//     dialog.Bind(6000, m_list);
//     if (const auto error = dialog.Create(module, 203, parent)) ...
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/module/module.h"
#include "platform/ui/anchors.h"
#include "platform/ui/control.h"
#include "platform/ui/controls.h"
#include "platform/ui/dialog_error.h"
#include "platform/ui/list_box.h"
#include "platform/ui/window.h"

namespace hx::ui {

class HX_PLATFORM_API Dialog : public Window {
public:
    ~Dialog() override;

    // The control stands for that of the template with this id, whatever language it is in. Before it is
    // created; the control outlives the dialog's window.
    void Bind(uint32_t id, Control& control);
    // A child of `parent`, visible if the template says so, or with WS_POPUP a frame in front of it that is
    // not visible yet. On failure nothing was made. What a person enters before OnInitDialog has ended is
    // impossible.
    [[nodiscard]] std::optional<DialogError> Create(const ModuleHandle& module, uint32_t template_id,
                                                    Window* parent);

    uint32_t TemplateId() const { return m_template_id; }
    // That the template is of, while created.
    const ModuleHandle& Module() const { return m_module; }
    // In tab order, while created.
    const std::vector<Control*>& Controls() const { return m_controls; }
    // Null if there is none; the one of that kind, or null.
    Control* Find(uint32_t id) const;
    template <class T>
    T* FindAs(uint32_t id) const {
        return dynamic_cast<T*>(Find(id));
    }
    // The text or frame that names the control: the nearest text or frame before it in the tab order, with
    // nothing between but other controls that share it. Null for none.
    StaticText* LabelOf(const Control& control) const;

    // How controls follow the size of the window, from that of the template, below which nothing is laid out.
    void SetAnchors(std::vector<AnchorRule> rules);
    Size TemplateSize() const { return m_template_size; }
    // That of a dialog of that template, created or not; nothing if there is none, or no renderer.
    static std::optional<Size> SizeOf(const ModuleHandle& module, uint32_t template_id);
    // A length in dialog units, by the dialog's font.
    Rectangle FromDialogUnits(const DialogRectangle& units) const;

    // Null for none; the component that it is in. Edit's selection stays; what loses the focus is told. A
    // component gives it to its first tab stop.
    Control* Focused() const { return m_focused; }
    void SetFocus(Control* control);
    // What Enter presses; null for none.
    Button* DefaultButton() const;
    void SetDefaultButton(Button& button);

    // Shows a frame and returns when EndDialog was called, or -1 if it could not be created (then
    // OnCreateFailed).
    int32_t RunModal(const ModuleHandle& module, uint32_t template_id, Window* owner);
    void EndDialog(int32_t result);
    bool HasEnded() const { return m_result.has_value(); }
    // Of EndDialog; of one that was destroyed before it ended, IDCANCEL.
    std::optional<int32_t> Result() const { return m_result; }

    Dialog* AsDialog() override { return this; }

    // Called by controls; must not throw, since a toolkit may be the caller. `code` is BN_..., EN_...,
    // CBN_... or LBN_...
    virtual void OnCommand(Control& /*control*/, uint32_t /*code*/) {}
    // `code` is TB_...; the position is where the track bar stands now.
    virtual void OnScroll(TrackBar& /*track_bar*/, uint32_t /*code*/, int32_t /*position*/) {}

    // Called by a renderer: the focus went there, null for out of the dialog.
    void UserFocus(Control* control);
    // The tab stop behind it or before it, in the dialog and what is embedded in it; null for none.
    Control* NextTabStop(const Control* from, bool backwards) const;
    // As Escape.
    void OnClose() override;

protected:
    Dialog() = default;
    // All controls are there. False if the focus was set here; else the first tab stop gets it, if this is a
    // frame.
    virtual bool OnInitDialog() { return true; }
    // Of RunModal.
    virtual void OnCreateFailed(const DialogError& /*error*/) {}
    // OK, Cancel, and closing: end the dialog with IDOK and IDCANCEL. OnCommand is not told of these buttons.
    virtual void OnOk() { EndDialog(static_cast<int32_t>(IdOfOk())); }
    virtual void OnCancel();
    void OnSize(const Size& size) override;
    // Enter presses the button that has the focus, or the default button, Escape the one with IDCANCEL.
    bool TakeKey(uint32_t key) override;
    void OnDestroy() override;
    // Controls that are neither bound nor simple are made here; null leaves it to the dialog.
    virtual std::unique_ptr<Control> MakeControl(const DialogControl& /*line*/) { return nullptr; }

private:
    friend class Control;
    static uint32_t IdOfOk();
    std::optional<DialogError> CreateAs(std::optional<WindowKind> kind, const ModuleHandle& module,
                                        uint32_t template_id, Window* parent);
    std::optional<DialogError> Make(std::optional<WindowKind> kind, const ModuleHandle& module,
                                    uint32_t template_id, Window* parent);
    std::optional<DialogError> TakeControls(const DialogTemplate& dialog);
    std::optional<DialogError> ActivateComponents(const DialogTemplate& dialog);
    void AttachControls(const DialogTemplate& dialog);
    void GiveUp();
    void Release();
    void Forget(Control& control);
    void OnControlEvent(Control& control, uint32_t code);
    void MoveFocus(Control* to, bool tell_view);
    void LeaveFocus();
    bool PressCancel();
    void LayOut();

    std::map<uint32_t, Control*> m_bound;
    std::vector<std::unique_ptr<Control>> m_made;
    std::vector<Control*> m_controls;
    ModuleHandle m_module;
    uint32_t m_template_id = 0;
    Size m_template_size;
    std::vector<Rectangle> m_template_bounds;  // of the controls
    std::vector<AnchorRule> m_anchors;
    Size m_base_units;
    Control* m_focused = nullptr;
    bool m_focus_told = false;  // to the control that has it
    Button* m_default_button = nullptr;
    bool m_shown_by_template = false;
    std::optional<int32_t> m_result;
};

}  // namespace hx::ui
