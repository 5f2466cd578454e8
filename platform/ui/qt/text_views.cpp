// Texts and the frames around others.
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QStyle>

#include "platform/ui/codes.h"
#include "platform/ui/controls.h"
#include "platform/ui/qt/control_view.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/services.h"

namespace hx::ui {

namespace {

class LabelView final : public QLabel, public ControlView {
public:
    LabelView(Control& control, QWidget& parent) : QLabel(&parent), ControlView(control, *this) {
        setTextFormat(Qt::PlainText);
        setWordWrap(true);
        setMargin(0);
        setIndent(0);
    }

    void SetBuddy(QWidget* buddy_widget) override {
        setBuddy(buddy_widget);
        Show(ControlChange::text);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        if (wordWrap()) return QLabel::paintEvent(event);
        // One line, of which an end without room is not hidden silently.
        QPainter painter(this);
        style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(),
                              fontMetrics().elidedText(text(), Qt::ElideRight, width()), foregroundRole());
    }

    void ShowOwn(ControlChange change) override {
        if (change == ControlChange::text) {
            // Without something that it stands for, a mnemonic would be shown as it is written.
            const std::wstring& text = Model()->Text();
            setText(ToQt(buddy() ? text : WithoutMnemonic(text)));
            setAccessibleName(ToQt(Model()->AccessibleName()));
        } else if (change == ControlChange::style) {
            const uint32_t type = Model()->Style() & SS_TYPEMASK;
            setWordWrap((Model()->Style() & SS_ENDELLIPSIS) == 0);
            setAlignment(Qt::AlignTop | (type == SS_CENTER  ? Qt::AlignHCenter
                                         : type == SS_RIGHT ? Qt::AlignRight
                                                            : Qt::AlignLeft));
        }
    }
};

class GroupView final : public QGroupBox, public ControlView {
public:
    GroupView(Control& control, QWidget& parent) : QGroupBox(&parent), ControlView(control, *this) {
        // Others lie in it that are no parts of it.
        setAttribute(Qt::WA_TransparentForMouseEvents);
        lower();
    }

protected:
    // With its title in the upper edge, which leaves the room below it that templates count on.
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr int kBeforeTitle = 8;
        constexpr int kAroundTitle = 3;
        constexpr double kRounding = 3;
        QPainter painter(this);
        const int height = fontMetrics().height();
        const QSize title_size = fontMetrics().size(Qt::TextShowMnemonic, title());
        const QRect place(QPoint(kBeforeTitle, 0), title_size);
        const int middle = height / 2;
        const QRectF frame = QRectF(rect()).adjusted(0.5, middle + 0.5, -0.5, -0.5);
        painter.save();
        if (!title().isEmpty()) {
            const QRect gap = place.adjusted(-kAroundTitle, 0, kAroundTitle, 0);
            painter.setClipRegion(QRegion(rect()) - QRegion(gap));
        }
        painter.setRenderHint(QPainter::Antialiasing);
        QColor line = palette().color(QPalette::WindowText);
        line.setAlphaF(0.25F);
        painter.setPen(line);
        painter.drawRoundedRect(frame, kRounding, kRounding);
        painter.restore();
        style()->drawItemText(&painter, place, Qt::TextShowMnemonic, palette(), isEnabled(), title(),
                              QPalette::WindowText);
    }

    void ShowOwn(ControlChange change) override {
        if (change != ControlChange::text) return;
        setTitle(ToQt(Model()->Text()));
        setAccessibleName(ToQt(Model()->AccessibleName()));
    }
};

// Nothing: what is to be seen there is the component's own window.
class ComponentView final : public QWidget, public ControlView {
public:
    ComponentView(Control& control, QWidget& parent) : QWidget(&parent), ControlView(control, *this) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        lower();
    }
};

}  // namespace

ControlView* MakeStaticView(Control& control, QWidget& parent) {
    if (static_cast<StaticText&>(control).IsGroup()) return new GroupView(control, parent);
    return new LabelView(control, parent);
}

ControlView* MakeComponentView(Control& control, QWidget& parent) {
    return new ComponentView(control, parent);
}

}  // namespace hx::ui
