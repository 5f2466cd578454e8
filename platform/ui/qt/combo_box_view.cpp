#include <QAbstractItemView>
#include <QComboBox>

#include "platform/ui/controls.h"
#include "platform/ui/qt/control_view.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/released.h"

namespace hx::ui {

namespace {

class ComboBoxView final : public CallingWidget<QComboBox>, public ControlView {
public:
    ComboBoxView(Control& control, QWidget& parent) : CallingWidget(&parent), ControlView(control, *this) {
        setFocusPolicy(Qt::StrongFocus);
        connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
            if (IsShowing() || !Model()) return;
            const InCall call;
            ComboBox& combo_box = *static_cast<ComboBox*>(Model());
            if (index != combo_box.Selected()) combo_box.UserSelect(index);
        });
    }

protected:
    // The template's height is that of the list dropped down.
    QRect Place() const override {
        QRect place = ControlView::Place();
        place.setHeight(std::min(place.height(), sizeHint().height()));
        return place;
    }

    void ShowOwn(ControlChange change) override {
        const ComboBox& combo_box = *static_cast<ComboBox*>(Model());
        if (change == ControlChange::items) {
            ShowItems(combo_box.Items());
            setCurrentIndex(combo_box.Selected());
        } else if (change == ControlChange::selection) {
            setCurrentIndex(combo_box.Selected());
        }
    }

private:
    void ShowItems(const std::vector<std::wstring>& items) {
        // Most often one was added to those that are there.
        int same = 0;
        while (same < count() && static_cast<size_t>(same) < items.size() &&
               itemText(same) == ToQt(items[static_cast<size_t>(same)])) {
            ++same;
        }
        while (count() > same) removeItem(count() - 1);
        for (size_t i = static_cast<size_t>(same); i < items.size(); ++i) addItem(ToQt(items[i]));
        // The list is as wide as its widest item, the box as its template says.
        view()->setMinimumWidth(view()->sizeHintForColumn(0));
    }
};

}  // namespace

ControlView* MakeComboBoxView(Control& control, QWidget& parent) {
    return new ComboBoxView(control, parent);
}

}  // namespace hx::ui
