// What the tests of the renderer for screens share: the renderer, which there is once per process, and
// dialogs that are shown in a frame.
#pragma once

#include <gtest/gtest.h>

#include <QWidget>
#include <memory>
#include <string>

#include "platform/module/module.h"
#include "platform/ui/dialog.h"
#include "platform/ui/renderer.h"
#include "platform/ui/user.h"

namespace hx_test {

// Of all pictures; set by HX_TEST_SCALE, 1 without it.
double Scale();
// Set by HX_TEST_DARK.
bool IsDark();
std::shared_ptr<hx::ui::IRenderer> Renderer();

class Frame final : public hx::ui::Window {
public:
    ~Frame() override { Destroy(); }
};

class Page : public hx::ui::Dialog {
public:
    ~Page() override { Destroy(); }
};

// A module with these dialogs, in which nothing has to be registered: the place of a component is a text.
hx::ModuleHandle ModuleOf(hx::Resources resources);

class QtTest : public testing::Test {
protected:
    QtTest();
    ~QtTest() override;

    // In the frame, shown, and everything painted.
    void Show(hx::ui::Dialog& dialog, const hx::ModuleHandle& module, uint32_t id);
    static QWidget& DialogWidget(const hx::ui::Dialog& dialog);
    static QWidget& WidgetOf(const hx::ui::Dialog& dialog, uint32_t control);
    hx::ui::IUser& User() const { return m_renderer->User(); }

    const std::shared_ptr<hx::ui::IRenderer> m_renderer = Renderer();
    Frame m_frame;
};

}  // namespace hx_test
