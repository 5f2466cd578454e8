// A test with windows that nobody sees and the class of gauge.h, which leaves nothing of either behind.
#pragma once

#include <gtest/gtest.h>

#include "platform/com/class_files.h"
#include "platform/com/loader.h"
#include "platform/system/utf8.h"
#include "platform/ui/headless/headless_renderer.h"
#include "tests/platform/temporary_folder.h"
#include "tests/platform/ui/hosting/gauge.h"

class Frame : public hx::ui::Window {
public:
    Frame() { Create(hx::ui::WindowKind::frame, nullptr, {0, 0, 400, 300}); }
    ~Frame() override { Destroy(); }
};

class WithGauges : public testing::Test {
protected:
    using Steps = std::vector<std::string>;

    void SetUp() override {
        Gauges::TheScript() = {};
        hx::ui::SetRenderer(hx::ui::HeadlessRenderer::Make());
        m_folder.Write("test.classes", Line(CLSID_Gauge, "Hx.Gauge") + Line(CLSID_Mute, "Hx.Mute"));
        hx::SetClassLookup(hx::ReadClassFiles(m_folder.path()));
    }
    void TearDown() override {
        EXPECT_EQ(Gauges::LivingWindows(), 0);
        EXPECT_TRUE(Gauges::NoneLeft());
        hx::SetClassLookup(nullptr);
        hx::ui::SetRenderer(nullptr);
    }
    Script& script() { return Gauges::TheScript(); }

private:
    static std::string Line(const CLSID& clsid, const std::string& prog_id) {
        return hx::ToUtf8(hx::GuidToText(clsid)) + "\t" + prog_id + ".1\t" + prog_id + "\tApartment\t" +
               HX_BIN_DIR + "/libhx_test_gauge.so\n";
    }

    TemporaryFolder m_folder;
};
