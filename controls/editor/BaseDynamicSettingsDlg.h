// The base of the two settings pages: binds the editing of profiles to the page's class. T derives, in this
// order, from a dialog, from cHXApiEventsSinkSimple<T> and from BaseDynamicSettingsDlg<T>; it binds
// ProfileList to kProfileList, passes the list's LBN_SELCHANGE to OnPresetSelectionChanged, its messages
// WM_HX_CONNECTION_STATE to the session, and destroys its window before it goes. On the thread of the user
// interface.
#pragma once

#include "controls/api/cHXApiEventsSinkSimple.h"
#include "controls/editor/ProfileEditor.h"
#include "controls/editor/ProfileMessages.h"
#include "platform/ui/services.h"

namespace hx {

template <class T>
class BaseDynamicSettingsDlg : public ProfileEditor {
public:
    void ErrorBox(const MException& exception) noexcept override { ShowErrorBox(&OwnWindow(), exception); }
    void ShowMessage(uint32_t string_id, std::wstring_view argument) override {
        ShowTextBox(&OwnWindow(), string_id, argument);
    }
    ui::Window& OwnWindow() override { return static_cast<T&>(*this); }

    ComPtr<IUnknown> MakeEventsSink() override { return Sink().MakeEventsSink(); }
    void ForgetEvents() override { Sink().ForgetEvents(); }
    std::shared_ptr<void> ShowWaitCursor() override { return ui::ShowWaitCursor(); }

protected:
    explicit BaseDynamicSettingsDlg(const SessionRules& rules, std::shared_ptr<libReplayCapture> recorder =
                                                                   libReplayCapture::GetInstance())
        : ProfileEditor(rules, std::move(recorder)) {}

private:
    cHXApiEventsSinkSimple<T>& Sink() { return static_cast<T&>(*this); }
};

}  // namespace hx
