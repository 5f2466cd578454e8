// The settings pages in a host's window on no screen, each with the simulated scanner that it is made for,
// and one long session that both go through: steps that every page knows, with controls of its own, and steps
// of one page alone.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "controls/settings_page/ScannerSettingsDlg.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/simulator/api/simulator_fixture.h"

namespace hx {

// A control, and what is typed into it or where it is moved.
struct Typed {
    uint32_t edit;
    const wchar_t* text;
};
struct Moved {
    uint32_t slider;
    int32_t position;
};

// A value that has a slider, whose position is counted down from `top` if there is one, and an edit for whole
// units of it.
struct ShownNumber {
    uint32_t slider, edit;
    int32_t (*value)(const DynamicSettingsData&);
    int32_t unit;
    int32_t top = 0;
};

struct PageKind {
    const char* name;  // of its class
    uint32_t dialog;
    std::unique_ptr<ScannerSettingsDlg> (*make)();
    const wchar_t* model;
    const wchar_t* driver;
    const wchar_t* device;
    Typed edits[2];    // of the first profile, of the second
    Moved sliders[4];  // of the first profile, the second, the saved one, the last
    int32_t gain;      // a row that is not selected
    std::vector<ShownNumber> numbers;
    // Calls that may fail without a box, beside those of all pages.
    std::set<std::string> logged;
    int32_t calls;  // that may fail in its session
    // What it shows beside what all pages show.
    void (*check)(ScannerSettingsDlg& page);
};

// By this order the tests are parameterised.
enum KindOfPage { kMeasurement, kHandheld };
extern const PageKind kPageKinds[];

class PageSession : public SimulatorTest {
protected:
    using Answer = ui::Script::Answer;
    struct Step {
        const char* name;
        std::function<void()> run;
        std::vector<Answer> answers = {};
        bool tells = true;  // of failures; else they are logged
        bool is_slow = false;
    };

    static void SetUpTestSuite();
    void SetUp() override;
    void TearDown() override;

    virtual const PageKind& Kind() const = 0;
    std::vector<Step> Steps();

    // A new page, with the profiles of the factory.
    void Begin();
    void Arrive(std::initializer_list<int32_t> states);
    // The boxes of a step.
    size_t Run(const Step& step);

    template <class T = ui::Control>
    T& At(uint32_t id) {
        return *m_page->FindAs<T>(id);
    }
    ui::IUser& User() { return m_renderer->User(); }
    ui::Window& Host() { return m_host; }

    std::unique_ptr<ScannerSettingsDlg> m_page;
    std::string m_last_box;
    int32_t m_not_done = 0;  // of what the operator was to do
    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = ui::HeadlessRenderer::Make();

private:
    struct Frame final : ui::Window {};

    void Initialise();
    // What the operator does, who may find that it cannot be done.
    std::function<void()> Act(std::function<bool()> act);

    Frame m_host;
    SafeArray m_arguments;
    SAFEARRAY* m_given = nullptr;
    int32_t m_sessions = 0;
};

}  // namespace hx
