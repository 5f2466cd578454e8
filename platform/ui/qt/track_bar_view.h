// A track bar's widget: what moves it has the system's codes. What moves it on while its dialog is busy with
// what came before is merged: of the thumb the dialog hears where it is by then, of keys that are held and
// the wheel how far they have come. On the thread of the user interface.
#pragma once

#include <QBasicTimer>
#include <QSlider>
#include <optional>

#include "platform/ui/controls.h"
#include "platform/ui/qt/control_view.h"
#include "platform/ui/qt/released.h"

namespace hx::ui {

class TrackBarView final : public CallingWidget<QSlider>, public ControlView {
public:
    TrackBarView(Control& control, QWidget& parent);

    QRect Handle() const;
    // The thumb is held.
    bool IsDragging() const { return m_dragging; }
    void DragTo(int position);
    void TellWaiting() override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void initStyleOption(QStyleOptionSlider* option) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void ShowOwn(ControlChange change) override;

private:
    struct Waiting {
        uint32_t code;
        int position;  // of the thumb
        int times;     // of other codes
        bool ends;     // TB_ENDTRACK follows
    };

    TrackBar* Bar() const;
    void Tell(uint32_t code, int position = 0, int times = 1);
    // Told once everything that has arrived is known.
    void Wait(const Waiting& input);
    void Post();
    // Towards where the button is held.
    void Page();
    // Whatever moved it is over.
    void End();
    int PositionAt(QPoint handle_corner) const;

    std::optional<Waiting> m_waiting;
    bool m_telling = false;
    bool m_painting = false;
    bool m_dragging = false;
    bool m_tracking = false;  // by a key or a click beside the thumb
    QPoint m_pressed;
    QPoint m_grip;  // in the thumb
    QBasicTimer m_repeat;
    int m_wheel = 0;
};

}  // namespace hx::ui
