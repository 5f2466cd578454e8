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
        for (const hx_test::Script& script : hx_test::Scripts()) {
            const hx::ModuleHandle module = hx_test::ModuleOf(script.resources);
            for (const auto& [id, dialog] : script.resources.dialogs) {
                SCOPED_TRACE(script.tag + ", dialog " + std::to_string(id));
                hx_test::Page page;
                Show(page, module, id);
                hx::SetAccessibleNames(page, *module);
                visit(page, id);
            }
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

TEST_F(QtDialogs, EveryControlHasANameAndEachLabelStandsForItsField) {
    ForEachDialog([](hx::ui::Dialog& dialog, uint32_t) {
        std::map<const hx::ui::StaticText*, QString> labelled;
        for (const hx::ui::Control* const control : dialog.Controls()) {
            using Kind = hx::ui::ControlKind;
            if (control->Kind() == Kind::static_text && control->Text().empty()) continue;
            const auto id = std::to_string(control->Id());
            if (control->Id() == hx::kNoControlId) continue;
            const QAccessibleInterface* const shown =
                QAccessible::queryAccessibleInterface(&WidgetOf(dialog, control->Id()));
            ASSERT_TRUE(shown) << id;
            const QString name = shown->text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty()) << id;
            EXPECT_FALSE(name.contains(u'%') && name.size() < 6) << id << " is named after a scale";
            const hx::ui::StaticText* const label = dialog.LabelOf(*control);
            const bool is_field = control->Kind() == Kind::combo_box || control->Kind() == Kind::track_bar;
            if (!is_field || !label || label->IsGroup() ||
                label->AccessibleName() != control->AccessibleName())
                continue;
            EXPECT_TRUE(HasLabel(*shown, name)) << id;
        }
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
        for (hx::ui::Control* const control : dialog.Controls()) {
            if (control->Id() == hx::kNoControlId) continue;
            const QWidget& widget = WidgetOf(dialog, control->Id());
            EXPECT_TRUE(IsWhole(widget)) << control->Id() << " " << hx::ToUtf8(control->Text());
        }
    });
}

TEST_F(QtDialogs, PicturesHaveTheScalesPixelsAndDarkOnesAreDark) {
    const hx::ModuleHandle module = hx_test::ModuleOf(hx_test::Base().resources);
    hx_test::Page page;
    Show(page, module, 203);
    const QImage light = Picture(page);
    const auto scale = static_cast<int>(hx_test::Scale());
    EXPECT_EQ(light.width(), page.ClientSize().width * scale);
    EXPECT_EQ(light.height(), page.ClientSize().height * scale);
    EXPECT_GT(qGray(light.pixel(1, 1)), 200);
    EXPECT_FALSE(m_renderer->SavePicture(page, L"/nowhere/at/all.png"));
}

}  // namespace
