// The host of a script's pages: each in a window of its own, with a simulated scanner as their scanner API.
// Nobody sits at it: what waits for a person is answered by the script, and nothing waits for ever. On the
// thread of the user interface; a renderer is set.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <vector>

#include "apps/hosting/HostedPage.h"
#include "apps/hxctl/page/page_names.h"
#include "apps/hxctl/record_json.h"
#include "hxapi/IHXSimulator.h"
#include "platform/ui/script.h"

namespace hxctl {

// A page in its window.
struct ScriptedPage {
    class Frame final : public hx::ui::Window {};

    const PageName* row = nullptr;
    Frame frame;
    hosting::HostedPage hosted;
    hx::ComPtr<IHXSimulator> simulator;  // that it was given; null for none
};

class PageHost {
public:
    // With that simulator, until a script asks for another model. The locale is known. Bare pages are created
    // by the script.
    PageHost(hx::ComPtr<IHXSimulator> simulator, const std::string& locale, bool bare);
    PageHost(const PageHost&) = delete;
    PageHost& operator=(const PageHost&) = delete;
    ~PageHost();

    // Throws an Impossible if the name is taken, or the page cannot be created; it is there even so.
    void Add(const std::string& name, const PageName& row);
    // Throws an Impossible if there is none.
    void Use(const std::string& name);

    // Of the page that is addressed. Those of the component and of its window throw an Impossible without
    // one.
    ScriptedPage& Page() const { return *m_current; }
    hosting::HostedPage& Hosted() const;
    void Create();
    void OpenWindow();
    void Resize(const hx::ui::Size& size);
    hx::ui::Dialog& Dialog() const;
    hx::ui::Control& Control(uint32_t id) const;
    hx::ui::ListBox& ProfileList() const;

    // The page's, or that of the host.
    IHXSimulator& Simulator() const;
    // The one of that model, which is the host's from now on: each model has one for the whole script. An
    // empty name is the model that there is. Throws a FailedCall if there is no such model.
    hx::ComPtr<IHXSimulator> SimulatorOf(const std::string& model);

    // Windows are made no larger from now on: each is painted as a whole.
    void LimitPixels(double most) { m_most_pixels = most; }

    // Where files are that a script names: empty, as in the beginning, for the working folder.
    void SetFolder(std::filesystem::path folder) { m_folder = std::move(folder); }
    std::string FileNamed(const std::string& name) const { return (m_folder / name).string(); }

    hx::ui::Script& Dialogs() { return m_dialogs; }
    // Everything that was posted is handled.
    static void Settle();
    // The simulator has told its events, and the page has handled them. Throws an Impossible after a while.
    void WaitForEvents() const;
    static bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience);

private:
    void WatchPreview() const;

    const LCID m_locale;
    const std::string m_locale_tag;
    const bool m_bare;
    double m_most_pixels = std::numeric_limits<double>::infinity();
    std::filesystem::path m_folder;
    hx::ui::Script m_dialogs;
    hx::ComPtr<IHXSimulator> m_simulator;  // the one chosen last of:
    std::vector<hx::ComPtr<IHXSimulator>> m_simulators;
    std::map<std::string, std::unique_ptr<ScriptedPage>, std::less<>> m_pages;
    ScriptedPage* m_current = nullptr;
};

}  // namespace hxctl
