#include "tests/platform/ui/qt/screen.h"

#include <QApplication>
#include <cstdlib>
#include <stdexcept>

#include "platform/system/utf8.h"
#include "platform/ui/load_renderer.h"
#include "tests/platform/ui/behaviour_fixture.h"

namespace hx_test {

double Scale() {
    const char* const scale = std::getenv("HX_TEST_SCALE");
    return scale ? std::atof(scale) : 1;
}

bool IsDark() {
    return std::getenv("HX_TEST_DARK") != nullptr;
}

std::shared_ptr<hx::ui::IRenderer> Renderer() {
    static const std::shared_ptr<hx::ui::IRenderer> renderer = [] {
        std::wstring reason;
        auto loaded = hx::ui::LoadScreenRenderer({true, Scale(), IsDark()}, reason);
        if (!loaded) throw std::runtime_error(hx::ToUtf8(reason));
        return loaded;
    }();
    return renderer;
}

hx::ModuleHandle ModuleOf(hx::Resources resources) {
    for (auto& [id, dialog] : resources.dialogs) {
        for (hx::DialogControl& control : dialog.controls) {
            if (control.window_class.starts_with(L'{')) control.window_class = L"Static";
        }
    }
    return hx::MakeResourceModule(L"", std::move(resources));
}

QtTest::QtTest() {
    hx::ui::SetRenderer(m_renderer);
    m_frame.Create(hx::ui::WindowKind::frame, nullptr, {0, 0, 900, 500});
    m_frame.Show(true);
    m_renderer->Pump();
}

QtTest::~QtTest() {
    m_frame.Destroy();
    m_renderer->Pump();
    hx::ui::SetRenderer(nullptr);
}

void QtTest::Show(hx::ui::Dialog& dialog, const hx::ModuleHandle& module, uint32_t id) {
    const auto error = dialog.Create(module, id, &m_frame);
    ASSERT_FALSE(error) << hx::ToUtf8(hx::ui::DialogError::NameOf(error->reason));
    dialog.Show(true);
    m_renderer->Pump();
}

// Widgets of controls are called by their ids, and there is one dialog at a time.
QWidget& QtTest::WidgetOf(const hx::ui::Dialog& /*dialog*/, uint32_t control) {
    for (QWidget* const widget : QApplication::allWidgets()) {
        if (widget->objectName() == QString::number(control) && widget->isVisible()) return *widget;
    }
    throw std::out_of_range("no widget of control " + std::to_string(control));
}

QWidget& QtTest::DialogWidget(const hx::ui::Dialog& dialog) {
    return *WidgetOf(dialog, dialog.Controls().front()->Id()).parentWidget();
}

// The one of the cases that hold for every renderer.
std::shared_ptr<hx::ui::IRenderer> MakeTestRenderer() {
    return Renderer();
}

}  // namespace hx_test
