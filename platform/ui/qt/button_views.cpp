// Buttons and check boxes.
#include <QCheckBox>
#include <QPushButton>

#include "platform/ui/controls.h"
#include "platform/ui/qt/control_view.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/released.h"

namespace hx::ui {

namespace {

class ButtonView final : public CallingWidget<QPushButton>, public ControlView {
public:
    ButtonView(Control& control, QWidget& parent) : CallingWidget(&parent), ControlView(control, *this) {
        setFocusPolicy(Qt::StrongFocus);
        setAutoDefault(false);
        connect(this, &QPushButton::clicked, this, [this] {
            const InCall call;
            if (Model()) static_cast<Button*>(Model())->UserClick();
        });
    }

    void ShowDefault() override { setDefault(static_cast<Button*>(Model())->IsDefault()); }

protected:
    void ShowOwn(ControlChange change) override {
        if (change != ControlChange::text) return;
        setText(ToQt(Model()->Text()));
        setAccessibleName(ToQt(Model()->AccessibleName()));
    }
};

class CheckBoxView final : public CallingWidget<QCheckBox>, public ControlView {
public:
    CheckBoxView(Control& control, QWidget& parent) : CallingWidget(&parent), ControlView(control, *this) {
        setFocusPolicy(Qt::StrongFocus);
        // Tools that read the screen toggle it without a click.
        connect(this, &QCheckBox::toggled, this, [this] {
            const InCall call;
            if (!IsShowing()) nextCheckState();
        });
    }

protected:
    // A click: whether it becomes checked is the control's affair.
    void nextCheckState() override {
        if (!Model()) return;
        static_cast<CheckBox*>(Model())->UserClick();
        Show(ControlChange::value);
    }

    void ShowOwn(ControlChange change) override {
        if (change == ControlChange::text) {
            setText(ToQt(Model()->Text()));
            setAccessibleName(ToQt(Model()->AccessibleName()));
        } else if (change == ControlChange::value) {
            setChecked(static_cast<CheckBox*>(Model())->IsChecked());
        }
    }
};

}  // namespace

ControlView* MakeButtonView(Control& control, QWidget& parent) {
    return new ButtonView(control, parent);
}

ControlView* MakeCheckBoxView(Control& control, QWidget& parent) {
    return new CheckBoxView(control, parent);
}

}  // namespace hx::ui
