#include "platform/ui/qt/list_box_view.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/qt_painter.h"

namespace hx::ui {

RowModel::RowModel(const ListBoxView& view) : m_view(view) {}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !m_view.List() ? 0 : m_view.List()->Count();
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    const bool is_text = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
    if (!is_text || index.row() >= rowCount()) return {};
    return ToQt(m_view.List()->RowText(index.row()));
}

void RowModel::Reset() {
    beginResetModel();
    endResetModel();
}

void RowSelection::setCurrentIndex(const QModelIndex& index, SelectionFlags command) {
    if (m_view.IsShown()) {
        QItemSelectionModel::setCurrentIndex(index, command);
    } else if (index.isValid() && (command & Select)) {
        m_view.Ask(index.row());
    }
}

void RowSelection::select(const QModelIndex& index, SelectionFlags command) {
    select(QItemSelection(index, index), command);
}

void RowSelection::select(const QItemSelection& selection, SelectionFlags command) {
    if (m_view.IsShown()) {
        QItemSelectionModel::select(selection, command);
    } else if (!selection.isEmpty() && (command & Select)) {
        m_view.Ask(selection.first().top());
    }
}

RowDelegate::RowDelegate(ListBoxView& view) : QStyledItemDelegate(&view), m_view(view) {}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    ListBox* const list = m_view.List();
    if (!list || index.row() >= list->Count()) return;
    const int left = -m_view.horizontalScrollBar()->value();
    const bool selected = list->Selected() == index.row();
    painter->save();
    painter->setFont(m_view.font());
    QtPainter ours(*painter, m_view.palette());
    list->DrawRow(
        ours, {index.row(),
               {left, option.rect.top(), left + m_view.RowWidth(), option.rect.top() + option.rect.height()},
               selected,
               selected && m_view.hasFocus(),
               list->IsEnabled()});
    painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const {
    const ListBox* const list = m_view.List();
    return list ? QSize(list->HorizontalExtent(), list->RowHeight()) : QSize();
}

ListBoxView::ListBoxView(Control& control, QWidget& parent)
    : CallingWidget(&parent), ControlView(control, *this), m_rows(*this), m_selection(m_rows, *this) {
    setFocusPolicy(Qt::StrongFocus);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideNone);
    setContextMenuPolicy(Qt::PreventContextMenu);
    // Where a pixel is none of the screen's, rows that reach the frame would be painted over its line.
    setViewportMargins(0, 0, 1, 1);
    setItemDelegate(new RowDelegate(*this));
    setModel(&m_rows);
    setSelectionModel(&m_selection);
    for (const QScrollBar* const bar : {verticalScrollBar(), horizontalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, [this] { TellScrolled(); });
    }
}

int ListBoxView::RowWidth() const {
    return std::max(viewport()->width(), List()->HorizontalExtent());
}

void ListBoxView::Ask(int row) {
    if (!List() || m_asked || (!m_pressed && row == List()->Selected())) return;
    const InCall call;
    m_asked = m_in_event;
    List()->UserSelect(row);
}

void ListBoxView::Repaint(bool now) {
    if (List() && List()->IsRedrawing()) ControlView::Repaint(now);
}

// However the event ends, the next one may ask again.
class ListBoxView::InputEvent {
public:
    explicit InputEvent(ListBoxView& view) : m_view(view) { m_view.m_in_event = true; }
    InputEvent(const InputEvent&) = delete;
    InputEvent& operator=(const InputEvent&) = delete;
    ~InputEvent() { m_view.m_in_event = m_view.m_pressed = m_view.m_asked = false; }

private:
    ListBoxView& m_view;
};

void ListBoxView::mousePressEvent(QMouseEvent* event) {
    const InputEvent input(*this);
    m_pressed = true;
    QListView::mousePressEvent(event);
}

// A row is not selected by passing over it.
void ListBoxView::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
}

void ListBoxView::keyPressEvent(QKeyEvent* event) {
    const InputEvent input(*this);
    QListView::keyPressEvent(event);
}

void ListBoxView::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    TellScrolled();
}

bool ListBoxView::event(QEvent* event) {
    if (event->type() == QEvent::Paint) {
        QPainter(this).fillRect(rect().adjusted(1, 1, -1, -1), palette().base());
    }
    return CallingWidget::event(event);
}

bool ListBoxView::viewportEvent(QEvent* event) {
    const InCall call;
    return CallingWidget::viewportEvent(event);
}

void ListBoxView::ShowOwn(ControlChange change) {
    switch (change) {
        case ControlChange::items:
            ShowRows();
            break;
        case ControlChange::selection:
            ShowSelection();
            break;
        case ControlChange::range:
            doItemsLayout();
            break;
        default:
            break;
    }
}

void ListBoxView::ShowRows() {
    const QSize layout(List()->Count(), List()->RowHeight());
    if (layout == m_layout) {
        // Texts are asked for when they are painted; only who reads the screen has to be told.
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::DataChanged);
        event.setFirstRow(0);
        event.setLastRow(layout.width() - 1);
        QAccessible::updateAccessibility(&event);
    } else {
        m_layout = layout;
        const int top = verticalScrollBar()->value();
        m_rows.Reset();
        // Without it, it does not know yet how far it can be scrolled.
        doItemsLayout();
        verticalScrollBar()->setValue(top);
    }
    ShowSelection();
    TellScrolled();
}

void ListBoxView::ShowSelection() {
    const QModelIndex index = m_rows.index(List()->Selected());
    if (index.isValid()) {
        m_selection.setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        const int sideways = horizontalScrollBar()->value();
        scrollTo(index);
        horizontalScrollBar()->setValue(sideways);
    } else {
        m_selection.clear();
    }
    viewport()->update();
}

void ListBoxView::TellScrolled() {
    if (!List()) return;
    const InCall call;
    // It is scrolled by whole rows.
    const Point offset = {horizontalScrollBar()->value(), verticalScrollBar()->value() * List()->RowHeight()};
    if (offset != List()->ScrollOffset()) List()->UserScrolled(offset);
}

ControlView* MakeListBoxView(Control& control, QWidget& parent) {
    return new ListBoxView(control, parent);
}

}  // namespace hx::ui
