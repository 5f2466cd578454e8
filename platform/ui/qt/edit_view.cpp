#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

#include "platform/ui/codes.h"
#include "platform/ui/controls.h"
#include "platform/ui/qt/control_view.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/released.h"

namespace hx::ui {

namespace {

class EditView final : public CallingWidget<QLineEdit>, public ControlView {
public:
    EditView(Control& control, QWidget& parent) : CallingWidget(&parent), ControlView(control, *this) {
        setFocusPolicy(Qt::StrongFocus);
        // In units of UTF-16, of which a character has at most two; what is still too much is cut below.
        setMaxLength(2 * static_cast<int>(Edit::kTextLimit));
        connect(this, &QLineEdit::textEdited, this, [this] { OnEdited(); });
        const auto on_selected = [this] {
            const InCall call;
            if (!IsShowing() && Model() && text() == ToQt(Model()->Text())) {
                static_cast<Edit*>(Model())->UserSelect(Selected());
            }
        };
        connect(this, &QLineEdit::selectionChanged, this, on_selected);
        connect(this, &QLineEdit::cursorPositionChanged, this, on_selected);
    }

    void Repaint(bool now) override {
        ShowBackground();
        ControlView::Repaint(now);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const QString typed = event->text();
        QLineEdit::keyPressEvent(event);
        const bool is_character =
            !typed.isEmpty() && (typed[0].isPrint() || typed[0] == u'\b' || typed[0].isSurrogate());
        if (Model() && event->isAccepted() && is_character) Model()->OnTyped();
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        const bool typed = !event->commitString().isEmpty();
        QLineEdit::inputMethodEvent(event);
        if (Model() && typed) Model()->OnTyped();
    }

    void changeEvent(QEvent* event) override {
        QLineEdit::changeEvent(event);
        if (event->type() == QEvent::EnabledChange) ShowBackground();
    }

    void ShowOwn(ControlChange change) override {
        const Edit& edit = *static_cast<Edit*>(Model());
        switch (change) {
            case ControlChange::text:
                if (const QString shown = ToQt(edit.Text()); shown != text()) setText(shown);
                ShowSelection(edit);
                ShowBackground();
                break;
            case ControlChange::selection:
                ShowSelection(edit);
                break;
            case ControlChange::style:
                setAlignment((edit.Style() & ES_RIGHT) ? Qt::AlignRight : Qt::AlignLeft);
                break;
            default:
                break;
        }
    }

private:
    Edit::Selection Selected() const {
        const bool some = hasSelectedText();
        const size_t start = FromQtPosition(text(), some ? selectionStart() : cursorPosition());
        return {start, some ? FromQtPosition(text(), selectionEnd()) : start};
    }

    void ShowSelection(const Edit& edit) {
        const Edit::Selection selection = edit.GetSelection();
        if (selection == Selected()) return;
        const int start = ToQtPosition(edit.Text(), selection.start);
        const int end = ToQtPosition(edit.Text(), selection.end);
        setSelection(start, end - start);
        if (start == end) setCursorPosition(end);
    }

    // A text was entered, at the end of which the caret is now: of several lines the first one stays, and of
    // too many characters those that there was room for.
    void OnEdited() {
        if (!Model()) return;
        const InCall call;
        QString entered = text();
        int caret = cursorPosition();
        for (int i = 0; i < caret; ++i) {
            if (entered[i] != u'\r' && entered[i] != u'\n') continue;
            entered.remove(i, caret - i);
            caret = i;
        }
        std::wstring characters = FromQt(entered);
        size_t position = FromQtPosition(entered, caret);
        if (characters.size() > Edit::kTextLimit) {
            const size_t excess = std::min(characters.size() - Edit::kTextLimit, position);
            position -= excess;
            characters.erase(position, excess);
        }
        static_cast<Edit*>(Model())->UserEnter(std::move(characters), {position, position});
    }

    void ShowBackground() {
        Colour colour;
        if (!Model() || !isEnabled() || !Model()->BackgroundColour(colour)) {
            setPalette({});
            return;
        }
        // Such colours are light ones, whatever the desktop's are.
        QPalette own = palette();
        own.setColor(QPalette::Base, ToQt(colour));
        own.setColor(QPalette::Text, Qt::black);
        setPalette(own);
    }
};

}  // namespace

ControlView* MakeEditView(Control& control, QWidget& parent) {
    return new EditView(control, parent);
}

}  // namespace hx::ui
