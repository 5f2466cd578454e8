#include "platform/ui/qt/track_bar_view.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyleOptionSlider>
#include <QStylePainter>
#include <QTimerEvent>
#include <cstdlib>
#include <utility>

#include "platform/ui/codes.h"
#include "platform/ui/qt/events.h"
#include "platform/ui/qt/keys.h"

namespace hx::ui {

namespace {

constexpr int kFirstRepeat_ms = 400;
constexpr int kNextRepeat_ms = 60;
constexpr int kNotch = 120;
// More ticks than these are a grey bar.
constexpr int kMostTicks = 25;

}  // namespace

TrackBarView::TrackBarView(Control& control, QWidget& parent)
    : CallingWidget(&parent), ControlView(control, *this) {
    setFocusPolicy(Qt::StrongFocus);
    // Tools that read the screen set it without a key.
    connect(this, &QSlider::valueChanged, this, [this](int value) {
        if (IsShowing() || !Model()) return;
        Tell(TB_THUMBPOSITION, value);
        Tell(TB_ENDTRACK);
    });
}

TrackBar* TrackBarView::Bar() const {
    return static_cast<TrackBar*>(Model());
}

void TrackBarView::Tell(uint32_t code, int position, int times) {
    if (!Model()) return;
    const InCall call;
    {
        const QScopedValueRollback telling(m_telling, true);
        Bar()->UserScroll(code, position, times);
    }
    // The control may have refused.
    Show(ControlChange::value);
    if (m_waiting) Post();
}

void TrackBarView::Wait(const Waiting& input) {
    if (m_waiting && m_waiting->code != input.code) TellWaiting();
    const int before = m_waiting ? m_waiting->times : 0;
    m_waiting = input;
    m_waiting->times += before;
    Post();
}

void TrackBarView::Post() {
    QCoreApplication::removePostedEvents(this, kTellWaiting);
    QCoreApplication::postEvent(this, new QEvent(kTellWaiting));
}

void TrackBarView::TellWaiting() {
    const std::optional<Waiting> input = std::exchange(m_waiting, std::nullopt);
    if (!input || !Model() || !isEnabled() || !isVisible()) return;
    const bool moved = input->code != TB_THUMBTRACK || input->position != Bar()->Position();
    if (moved) Tell(input->code, input->position, input->times);
    if (input->ends) Tell(TB_ENDTRACK);
}

// Not inside the call that it waits for: that one posts it again when it is over.
bool TrackBarView::event(QEvent* event) {
    if (event->type() != kTellWaiting) return CallingWidget::event(event);
    const InCall call;
    if (!m_telling) TellWaiting();
    return true;
}

void TrackBarView::ShowOwn(ControlChange change) {
    const TrackBar& bar = *Bar();
    switch (change) {
        case ControlChange::style:
            setOrientation(bar.IsVertical() ? Qt::Vertical : Qt::Horizontal);
            setInvertedAppearance(bar.IsVertical());
            setTickPosition((bar.Style() & TBS_AUTOTICKS) ? QSlider::TicksBelow : QSlider::NoTicks);
            break;
        case ControlChange::range:
            setRange(bar.Minimum(), bar.Maximum());
            setPageStep(bar.PageSize());
            setSingleStep(bar.LineSize());
            setTickInterval(int64_t{bar.Maximum()} - bar.Minimum() <= kMostTicks ? 1 : bar.PageSize());
            setValue(bar.Position());
            break;
        case ControlChange::value:
            setValue(bar.Position());
            break;
        default:
            break;
    }
}

// Styles make the ticks a little darker than what they are on, and in dark colours nobody sees them: they are
// drawn once more, as if on the colour of texts.
void TrackBarView::paintEvent(QPaintEvent* event) {
    const bool outer = std::exchange(m_painting, true);
    QSlider::paintEvent(event);
    m_painting = outer;
    if (tickPosition() == QSlider::NoTicks) return;
    QStylePainter painter(this);
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_SliderTickmarks;
    option.palette.setColor(QPalette::Window, palette().color(QPalette::WindowText));
    painter.drawComplexControl(QStyle::CC_Slider, option);
}

// The coloured part of an upright bar lies between its thumb and the bottom, where such bars have their least
// value, though it is the end of the maximum: it is painted as if counted from there.
void TrackBarView::initStyleOption(QStyleOptionSlider* option) const {
    QSlider::initStyleOption(option);
    if (!m_painting || orientation() != Qt::Vertical || option->upsideDown) return;
    option->upsideDown = true;
    option->sliderPosition = minimum() + maximum() - option->sliderPosition;
}

void TrackBarView::DragTo(int position) {
    if (m_dragging) Wait({TB_THUMBTRACK, position, 0, false});
}

void TrackBarView::End() {
    TellWaiting();
    const bool dragged = std::exchange(m_dragging, false);
    const bool tracking = std::exchange(m_tracking, false);
    m_repeat.stop();
    setSliderDown(false);
    if (dragged && Model()) Tell(TB_THUMBPOSITION, Bar()->Position());
    if (dragged || tracking) Tell(TB_ENDTRACK);
}

QRect TrackBarView::Handle() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

int TrackBarView::PositionAt(QPoint handle_corner) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect handle = Handle();
    const bool across = orientation() == Qt::Horizontal;
    const int room = across ? groove.width() - handle.width() : groove.height() - handle.height();
    const int at = across ? handle_corner.x() - groove.x() : handle_corner.y() - groove.y();
    return QStyle::sliderValueFromPosition(minimum(), maximum(), at, room, option.upsideDown);
}

void TrackBarView::Page() {
    if (!Model() || Handle().contains(m_pressed)) return;
    const QPoint handle = Handle().center();
    const bool towards_minimum =
        orientation() == Qt::Horizontal ? m_pressed.x() < handle.x() : m_pressed.y() < handle.y();
    m_tracking = true;
    Tell(towards_minimum ? TB_PAGEUP : TB_PAGEDOWN);
}

void TrackBarView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_pressed = event->position().toPoint();
    const QRect handle = Handle();
    if (handle.contains(m_pressed)) {
        m_dragging = true;
        m_grip = m_pressed - handle.topLeft();
        setSliderDown(true);
        return;
    }
    m_repeat.start(kFirstRepeat_ms, this);
    Page();
}

void TrackBarView::mouseMoveEvent(QMouseEvent* event) {
    m_pressed = event->position().toPoint();
    if (!m_dragging || !Model()) return;
    DragTo(PositionAt(m_pressed - m_grip));
}

void TrackBarView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) End();
}

void TrackBarView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_repeat.timerId()) {
        QSlider::timerEvent(event);
        return;
    }
    m_repeat.start(kNextRepeat_ms, this);
    Page();
}

void TrackBarView::keyPressEvent(QKeyEvent* event) {
    const uint32_t key = SystemKeyOf(*event);
    const std::optional<uint32_t> code = key != 0 && Model() ? Bar()->CodeOfKey(key) : std::nullopt;
    if (!code) {
        event->ignore();
        return;
    }
    m_tracking = true;
    if (event->isAutoRepeat()) {
        Wait({*code, 0, 1, false});
    } else {
        Tell(*code);
    }
}

void TrackBarView::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) return;
    if (m_tracking && !m_repeat.isActive()) End();
}

void TrackBarView::wheelEvent(QWheelEvent* event) {
    event->accept();
    // Fine wheels turn by parts of a notch.
    m_wheel += event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    const int notches = m_wheel / kNotch;
    m_wheel %= kNotch;
    if (notches != 0 && Model()) Wait({Bar()->CodeOfWheel(notches > 0), 0, std::abs(notches), true});
}

void TrackBarView::focusOutEvent(QFocusEvent* event) {
    QSlider::focusOutEvent(event);
    End();
}

void TrackBarView::hideEvent(QHideEvent* event) {
    QSlider::hideEvent(event);
    End();
}

void TrackBarView::changeEvent(QEvent* event) {
    QSlider::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) End();
}

ControlView* MakeTrackBarView(Control& control, QWidget& parent) {
    return new TrackBarView(control, parent);
}

}  // namespace hx::ui
