// A list's widget. It reads the rows from the list box, keeps none of them, and shows as selected what the
// list box says: what a person selects is asked of it. On the thread of the user interface.
#pragma once

#include <QAbstractListModel>
#include <QItemSelectionModel>
#include <QListView>
#include <QStyledItemDelegate>

#include "platform/ui/list_box.h"
#include "platform/ui/qt/control_view.h"
#include "platform/ui/qt/released.h"

namespace hx::ui {

class ListBoxView;

class RowModel final : public QAbstractListModel {
public:
    explicit RowModel(const ListBoxView& view);
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    // All rows may be other ones now.
    void Reset();

private:
    const ListBoxView& m_view;
};

class RowSelection final : public QItemSelectionModel {
public:
    RowSelection(RowModel& rows, ListBoxView& view) : QItemSelectionModel(&rows), m_view(view) {}
    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;
    void select(const QModelIndex& index, SelectionFlags command) override;
    void select(const QItemSelection& selection, SelectionFlags command) override;

private:
    ListBoxView& m_view;
};

class RowDelegate final : public QStyledItemDelegate {
public:
    explicit RowDelegate(ListBoxView& view);
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    ListBoxView& m_view;
};

class ListBoxView final : public CallingWidget<QListView>, public ControlView {
public:
    ListBoxView(Control& control, QWidget& parent);

    ListBox* List() const { return static_cast<ListBox*>(Model()); }
    // A person wants that row. One event asks once, in however many ways the widget takes it.
    void Ask(int row);
    bool IsShown() const { return IsShowing(); }
    // Of a row, in the viewport; as wide as the list or what can be scrolled to.
    int RowWidth() const;

    QWidget& Surface() const override { return *viewport(); }
    void Repaint(bool now) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void ShowOwn(ControlChange change) override;

private:
    class InputEvent;
    void ShowRows();
    void ShowSelection();
    void TellScrolled();

    RowModel m_rows;
    RowSelection m_selection;
    QSize m_layout;  // how many rows there are, how high they are
    bool m_in_event = false;
    bool m_pressed = false;  // the event is the mouse's: a click on the selected row is one, too
    bool m_asked = false;    // in this event
};

}  // namespace hx::ui
