// What the cases of behaviour/ need: a page and a modal dialog in a window of a renderer, whichever the test
// program makes. The cases deal with it by IUser and dialogs only, so that they hold for all renderers.
//
// A test program compiles behaviour/*.cpp and behaviour_fixture.cpp, and says how its renderer is made.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/script.h"
#include "platform/ui/services.h"
#include "platform/ui/user.h"

namespace hx_test {

// Given by each test program; called once per process.
std::shared_ptr<hx::ui::IRenderer> MakeTestRenderer();

// The controls of the page and of the modal dialog.
enum TestId : uint32_t {
    kGroup = 10,
    kList = 11,
    kPower = 12,  // track bar, 0 to 100
    kPowerText = 13,
    kAutomatic = 14,
    kGain = 15,
    kDetect = 16,
    kHeight = 17,  // vertical track bar, down is left
    kHidden = 18,  // button
    kName = 20,
    kDiscard = 21,
};
inline constexpr uint32_t kPage = 100;
inline constexpr uint32_t kModal = 200;

// The module with both.
hx::ModuleHandle TestModule();

// Remembers what it is told: "13 EN_CHANGE", "12 TB_LINEUP 3".
class TestDialog final : public hx::ui::Dialog {
public:
    TestDialog() = default;
    ~TestDialog() override { Destroy(); }

    std::vector<std::string> TakeEvents() { return std::exchange(m_events, {}); }
    std::function<void(hx::ui::Control&, uint32_t)> on_command;
    std::function<void()> on_init;
    std::function<void()> on_ok;
    std::vector<bool> shown;
    hx::ui::DialogError create_error;

    void OnCommand(hx::ui::Control& control, uint32_t code) override;
    void OnScroll(hx::ui::TrackBar& track_bar, uint32_t code, int32_t position) override;

protected:
    bool OnInitDialog() override;
    void OnCreateFailed(const hx::ui::DialogError& error) override { create_error = error; }
    void OnOk() override;
    void OnShown(bool is_shown) override { shown.push_back(is_shown); }

private:
    std::vector<std::string> m_events;
};

// Something on the screen by itself, with nothing in it but what is put there.
class TestFrame final : public hx::ui::Window {
public:
    TestFrame() = default;
    ~TestFrame() override { Destroy(); }
};

class Behaviour : public testing::Test {
protected:
    Behaviour();
    ~Behaviour() override;

    // The page's controls.
    template <class T>
    T& Get(uint32_t id) {
        return *page->FindAs<T>(id);
    }
    // Tells the events of the page since the last call.
    std::vector<std::string> Events() { return page->TakeEvents(); }

    // The renderer, set as the current one, and its user.
    hx::ui::IRenderer& renderer;
    hx::ui::IUser& user;
    hx::ui::Script script;
    size_t expected_unanswered = 0;
    TestFrame frame;
    // Shown, with nothing selected or focused, and no event told yet.
    std::unique_ptr<TestDialog> page = std::make_unique<TestDialog>();
};

using Texts = std::vector<std::string>;

}  // namespace hx_test
