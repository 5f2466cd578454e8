// Somebody who does anything to the measurement page, as an operator, a host, a cable and a failing scanner
// may, and sees whether what can be seen from outside is what it may be. Used by the test that runs it.
#pragma once

#include <array>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/com/text_array.h"
#include "platform/system/utf8.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/controls/hosted/hosted_scanner.h"

namespace hosted {

namespace ui = hx::ui;

inline constexpr uint32_t kThreshold = 2;  // of the sliders: it is enabled whenever a profile is shown
inline constexpr uint32_t kExposure = 1;

struct Step {
    size_t action = 0;
    std::array<uint32_t, 4> numbers{};
};
using Steps = std::vector<Step>;

template <size_t kCount, class T>
const T& Pick(const T (&rows)[kCount], uint32_t number) {
    return rows[number % kCount];
}

class Monkey {
public:
    struct Action;
    static const std::vector<Action>& Actions();
    static std::string Text(const Step& step);

    Monkey(const std::shared_ptr<ui::HeadlessRenderer>& renderer, uint32_t model)
        : m_renderer(renderer), m_scanner(Pick(kModels, model)), m_predefined(Predefined()) {
        OpenAnew();
        if (!s_operations.empty()) return;
        hx::SafeArray names;
        m_scanner.hands->GetOperations(names.put());
        const auto operations = hx::TextsOf(names.get());
        for (const std::wstring& name : *operations) {
            s_operations.push_back(hx::ToUtf8(name.substr(name.find(L'.') + 1)));
        }
    }

    // What is wrong afterwards; "" if nothing is.
    std::string Run(const Steps& steps, bool trace) {
        for (const Step& step : steps) {
            if (trace) std::cerr << "    " << Text(step) << std::endl;
            std::string wrong = Do(step);
            if (trace) std::cerr << "      " << State() << std::endl;
            if (!wrong.empty()) return wrong + " after " + Text(step);
        }
        std::string wrong = Revive();
        return wrong.empty() ? "" : wrong + " at the end";
    }

private:
    static constexpr const char* kModels[] = {"HX", "KT05FxR3PA", "T820"};
    static constexpr const wchar_t* kNames[] = {L"Own 1", L"$DEFAULT", L"Own 2", L"own 3", L"", L"none"};

    std::string Do(const Step& step);
    std::string Wrong(const ui::Dialog& page);
    std::string WrongRows(const ui::Dialog& page);
    std::string Revive();

    std::map<std::string, Profile> Predefined() const {
        std::map<std::string, Profile> profiles = m_scanner.Stored();
        std::erase_if(profiles, [](const auto& each) { return !each.first.starts_with('$'); });
        return profiles;
    }
    void OpenAnew() {
        m_page.Close();
        m_foreign = false;
        m_trusted = OpenPage(m_page, m_frame, m_scanner, L"Own 1");
        m_foreign = m_foreign || !m_trusted;
    }
    static std::string TextOf(const Values& values) {
        std::string text;
        for (const double number : values.numbers) text += " " + std::to_string(number);
        for (const bool flag : values.flags) text += flag ? " on" : " off";
        return text + " " + std::to_string(values.gain);
    }
    std::string State() const {
        const ui::Dialog* const page = m_page.Dialog();
        if (page == nullptr) return "no page";
        const int32_t selected = page->FindAs<ui::ListBox>(kList)->Selected();
        return Row(*page, selected) + TextOf(Shown(*page)) + (IsShown(*page) ? "" : " disabled");
    }
    ui::IUser& User() { return m_renderer->User(); }
    template <class T>
    T& At(uint32_t id) {
        return *m_page.Dialog()->FindAs<T>(id);
    }
    ui::TrackBar& Slider(uint32_t number) { return At<ui::TrackBar>(Pick(kSliders, number)); }
    ui::ListBox& List() { return At<ui::ListBox>(kList); }
    static std::string Row(const ui::Dialog& page, int32_t row) {
        const auto& list = *page.FindAs<ui::ListBox>(kList);
        return row < 0 ? "" : hx::ToUtf8(list.RowText(row));
    }
    static bool HasEdits(const ui::Dialog& page) {
        const auto& list = *page.FindAs<ui::ListBox>(kList);
        return Row(page, list.Selected()).starts_with('*');
    }
    // The text of an edit that is left may become another number.
    static bool IsTyping(const ui::Dialog& page) {
        return page.Focused() != nullptr && page.Focused()->Kind() == ui::ControlKind::edit;
    }
    static bool IsShown(const ui::Dialog& page) { return page.Find(kSliders[kThreshold])->IsEnabled(); }

    void Initialise(uint32_t profile, uint32_t names) {
        // The last ones are another scanner's, and profiles that are only there for a while.
        const bool custom = names % 16 == 14, other = names % 16 == 15;
        m_foreign = m_foreign || custom || other;
        m_page.Initialise(m_scanner.driver, other ? L"other" : m_scanner.device, L"",
                          hosting::HostedPage::ArgumentsOf(custom ? L"$CUSTOM" : Pick(kNames, profile)));
    }
    void InitialiseMalformed(uint32_t number) {
        hx::SafeArray array;
        if (number % 4 != 0) {
            array.attach(SafeArrayCreateVector(number % 4 == 1 ? VT_BSTR : VT_VARIANT, 3, number % 4 == 2));
        }
        m_page.Initialise(m_scanner.driver, m_scanner.device, L"", std::move(array));
    }
    void Save() {
        m_may_close = false;
        m_page.Save(m_may_close);
        m_saved = true;
    }
    void MoveCable(uint32_t how) {
        static constexpr int32_t kStates[] = {0, 1, 2, 1, 0, 7, -1};
        if (how % 16 < 6) m_scanner.hands->Connect();
        if (how % 16 == 6) m_scanner.hands->Disconnect();
        if (how % 16 > 6) m_scanner.hands->SetConnectionState(Pick(kStates, how / 16), how % 16 != 7);
        // Thus whoever dispatches next finds them.
        m_scanner.hands->WaitForEvents();
    }
    // What may come while a question or a message is on the screen.
    void Interrupt(uint32_t what, uint32_t number) {
        switch (what % 8) {
            case 0:
                return m_page.Select(), void();
            case 1:
                return m_page.Deselect(), void();
            case 2:
                return Save();
            case 3:
                return m_page.SetApi(m_scanner.api.get()), void();
            case 4:
                return m_page.Close();
            case 5:
                return Initialise(number, number / 16);
            default:
                return MoveCable(number), m_scanner.Settle();
        }
    }

    const std::shared_ptr<ui::HeadlessRenderer> m_renderer;
    const Scanner m_scanner;
    const std::map<std::string, Profile> m_predefined;
    inline static std::vector<std::string> s_operations;  // that can fail
    Frame m_frame;
    hosting::HostedPage m_page;
    std::unique_ptr<ui::Script> m_script;  // the step's
    bool m_trusted = false;                // what the page takes for stored is stored
    bool m_foreign = false;                // it was told to edit something else
    bool m_fails = false;                  // the scanner, in this step
    bool m_saved = false;                  // the host has asked in this step
    bool m_may_close = false;
};

struct Monkey::Action {
    enum class Kind { leaves_edits, edits, drops, fault };
    const char* name;
    uint32_t weight;
    Kind kind;
    bool needs_window;
    void (*run)(Monkey& monkey, const std::array<uint32_t, 4>& numbers);
};

}  // namespace hosted
