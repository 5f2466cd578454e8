// A page of the hardware configuration inside a host's window, as any host has it: created by its name,
// handed the scanner API, selected, saved and closed through its component interfaces alone. On the thread of
// the user interface.
#pragma once

#include <optional>
#include <string>

#include "hxapi/DHXConfigCtrl.h"
#include "platform/com/comptr.h"
#include "platform/com/safearray.h"
#include "platform/ui/component_site.h"
#include "platform/ui/dialog.h"

namespace hosting {

// What a call came to; the text is what the component said of a failure, or empty.
struct Answer {
    HRESULT result = S_OK;
    std::wstring text;
    bool IsDone() const { return SUCCEEDED(result); }
};

class HostedPage {
public:
    HostedPage() = default;
    HostedPage(const HostedPage&) = delete;
    HostedPage& operator=(const HostedPage&) = delete;
    // As Close.
    ~HostedPage();

    // The component alone; then its window, a child of `parent`, visible.
    Answer Create(const wchar_t* prog_id);
    Answer Open(const hx::ui::Window& parent, const hx::ui::Rectangle& bounds, LCID locale);
    bool IsCreated() const { return static_cast<bool>(m_control); }
    void Move(const hx::ui::Rectangle& bounds);
    // Another page takes its place on the screen, or gives it back. Neither selects it.
    void Show(bool visible);
    // Window and component; twice is no error.
    void Close();

    // The calls of DHXConfigCtrl, E_UNEXPECTED before Create.
    Answer SetApi(IUnknown* api);
    Answer SetSettingsObjectMap(IUnknown* map);
    Answer Select();
    Answer Deselect();
    // By number, as hosts do that know it by name alone. The array is this object's from now on: a page keeps
    // the address of it. Null is handed over as it is.
    Answer Initialise(const std::wstring& driver, const std::wstring& device, const std::wstring& function,
                      hx::SafeArray arguments);
    // An array of one string.
    static hx::SafeArray ArgumentsOf(const std::wstring& profile);
    // Whether it may close; S_OK and true of a page that leaves the answer as it was.
    Answer Save(bool& may_close);

    // The string in the first argument as it is now; nothing if there is none.
    std::optional<std::wstring> Selected() const;
    // The dialog inside its window; null without a window.
    hx::ui::Dialog* Dialog() const;

private:
    hx::ComPtr<DHXConfigCtrl> m_control;
    hx::ComPtr<hx::ui::ComponentSite> m_site;
    SAFEARRAY* m_arguments = nullptr;
};

}  // namespace hosting
