// Every dialog of every language as a screen shows it: named for those who do not see it, and nothing cut
// off.
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <filesystem>
#include <functional>

#include "controls/widgets/AccessibleNames.h"
#include "platform/system/utf8.h"
#include "platform/ui/services.h"
#include "tests/platform/ui/qt/screen.h"
#include "tests/resources/scripts.h"

namespace {

class QtDialogs : public hx_test::QtTest {
protected:
    void ForEachDialog(const std::function<void(hx::ui::Dialog&, uint32_t)>& visit) {
        for (const char* const module : {hx_test::kPages, hx_test::kHost}) {
            for (const hx_test::Script& script : hx_test::Scripts(module)) Visit(script, visit);
        }
    }

    void Visit(const hx_test::Script& script, const std::function<void(hx::ui::Dialog&, uint32_t)>& visit) {
        const hx::ModuleHandle module = hx_test::ModuleOf(script.resources);
        for (const auto& [id, dialog] : script.resources.dialogs) {
            SCOPED_TRACE(script.tag + ", dialog " + std::to_string(id));
            hx_test::Page page;
            Show(page, module, id);
            hx::SetAccessibleNames(page, *module);
            visit(page, id);
        }
    }

    QImage Picture(hx::ui::Window& window) {
        const std::filesystem::path file = std::filesystem::temp_directory_path() / "hx_qt_dialog.png";
        EXPECT_TRUE(m_renderer->SavePicture(window, file.wstring()));
        const QImage image(QString::fromStdString(file.string()));
        std::filesystem::remove(file);
        return image;
    }
};

bool HasLabel(const QAccessibleInterface& interface, const QString& name) {
    for (const auto& [other, relation] : interface.relations(QAccessible::Label)) {
        if (other->text(QAccessible::Name).remove(u'&') == name) return true;
    }
    return false;
}

// Of a part of the accessible tree: no control without a name, none that is named after the end of its scale.
void Audit(QAccessibleInterface& part, int& labelled) {
    const QAccessible::Role role = part.role();
    const QString name = part.text(QAccessible::Name);
    const bool is_text =
        role == QAccessible::StaticText || role == QAccessible::Client || role == QAccessible::Window;
    const std::string what = std::to_string(role) + " " + part.object()->objectName().toStdString();
    const bool is_control = !part.object()->objectName().isEmpty() && !part.state().invisible;
    if (is_control && !is_text) {
        EXPECT_FALSE(name.isEmpty()) << what;
        EXPECT_TRUE(name.size() > 1 && !name.endsWith(u"0%") && !name.endsWith(u"0 %")) << what;
        if (role == QAccessible::ComboBox) {
            EXPECT_TRUE(HasLabel(part, name)) << what;
        }
        if (HasLabel(part, name)) ++labelled;
    }
    for (int i = 0; i < part.childCount() && role != QAccessible::ComboBox; ++i) {
        QAccessibleInterface* const child = part.child(i);
        if (child && child->object()) Audit(*child, labelled);
    }
}

TEST_F(QtDialogs, EveryControlHasANameAndFieldsHaveTheirLabels) {
    // Combo boxes and sliders with a label of their own, and the one edit whose label is for it alone.
    const std::map<uint32_t, int> labelled_fields = {{100, 8}, {201, 0}, {203, 7},
                                                     {205, 1}, {208, 0}, {280, 4}};
    ForEachDialog([&](hx::ui::Dialog& dialog, uint32_t id) {
        int labelled = 0;
        Audit(*QAccessible::queryAccessibleInterface(&DialogWidget(dialog)), labelled);
        EXPECT_EQ(labelled, labelled_fields.at(id));
    });
}

// Whether the widget has room for what it shows.
bool IsWhole(const QWidget& widget) {
    const QFontMetrics metrics(widget.font());
    const auto width_of = [&](const QString& text) {
        return metrics.size(Qt::TextShowMnemonic, text).width();
    };
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        const QRect wrapped = metrics.boundingRect(QRect(0, 0, label->width(), 10000), Qt::TextWordWrap,
                                                   label->text().remove(u'&'));
        return wrapped.width() <= label->width() && wrapped.height() <= label->height();
    }
    if (const auto* const box = qobject_cast<const QCheckBox*>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(box);
        option.text = box->text();
        const QRect contents = box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box);
        return width_of(box->text()) <= contents.width() && metrics.height() <= box->height();
    }
    if (const auto* const button = qobject_cast<const QPushButton*>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(button);
        const QRect contents =
            button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
        return width_of(button->text()) <= contents.width() && metrics.height() <= contents.height();
    }
    if (const auto* const group = qobject_cast<const QGroupBox*>(&widget)) {
        constexpr int kCorners = 16;
        return width_of(group->title()) <= group->width() - kCorners;
    }
    if (const auto* const edit = qobject_cast<const QLineEdit*>(&widget)) {
        constexpr int kFrame = 4;
        return metrics.height() <= edit->height() - kFrame;
    }
    return true;
}

TEST_F(QtDialogs, NoTextIsCutOff) {
    ForEachDialog([](hx::ui::Dialog& dialog, uint32_t) {
        for (const QWidget* const widget : DialogWidget(dialog).findChildren<QWidget*>()) {
            const bool is_control = !widget->objectName().isEmpty();
            if (is_control) {
                EXPECT_TRUE(IsWhole(*widget)) << widget->accessibleName().toStdString();
            }
        }
    });
}

TEST_F(QtDialogs, PicturesHaveTheScalesPixelsAndDarkOnesAreDark) {
    const hx::ModuleHandle module = hx_test::ModuleOf(hx_test::Base().resources);
    hx_test::Page page;
    Show(page, module, 203);
    const QImage picture = Picture(page);
    const auto scale = static_cast<int>(hx_test::Scale());
    EXPECT_EQ(picture.width(), page.ClientSize().width * scale);
    EXPECT_EQ(picture.height(), page.ClientSize().height * scale);
    EXPECT_EQ(qGray(picture.pixel(1, 1)) < 128, hx_test::IsDark());
    EXPECT_FALSE(m_renderer->SavePicture(page, L"/nowhere/at/all.png"));
}

}  // namespace
