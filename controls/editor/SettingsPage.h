// What the dialog base of the settings pages has of a page, and gives to it: the operations that each page
// supplies, its session with the scanner, and how its handlers run. Derived from by ProfileEditor. On the
// thread of the user interface.
#pragma once

#include "controls/editor/DynamicSettings.h"
#include "controls/editor/ICurrentPresetHandler.h"
#include "controls/session/ScannerSession.h"
#include "platform/ui/window.h"

namespace hx {

class SettingsPage : public ICurrentPresetHandler,
                     public ISessionPage,
                     public DynamicSettings,
                     public std::enable_shared_from_this<SettingsPage> {
public:
    SettingsPage(const SettingsPage&) = delete;
    SettingsPage& operator=(const SettingsPage&) = delete;

    // What a page has of its own. ErrorBox and ShowMessage return when the box is closed.
    void ErrorBox(const MException& exception) noexcept override = 0;
    virtual void ShowMessage(uint32_t string_id, std::wstring_view argument) = 0;
    // The controls' values into the record, and the record into the working preset, once IsReady. From
    // sliders, other controls follow these first.
    virtual void UpdateSettingsFromUI(bool from_sliders) = 0;
    void EnableControls(bool enable) noexcept override = 0;
    // Shows the preset and activates it. False if that failed, which was told; see ShowOrPutBack.
    virtual bool SetProfile(const ComPtr<IDynamicSettingsPreset>& preset) = 0;
    virtual void ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset) = 0;
    // Tells the host what is selected in the list.
    virtual void ReportSelectedPreset() = 0;
    virtual void UpdateExposureText() = 0;
    // The selection in the list is about to be followed.
    virtual void OnPresetSelectionChanging() {}
    // At the end of a set-up: whether the profile, as it is edited and as it is stored, takes the values that
    // the controls show of it, which may be rounded.
    virtual bool TakesShownValues() const { return true; }
    // In front of which boxes and questions come up.
    virtual ui::Window& OwnWindow() = 0;

    std::shared_ptr<void> Hold() override { return weak_from_this().lock(); }

    // Whether the working preset, the record and the controls are those of the current profile.
    bool IsReady() const { return m_ready; }
    ScannerSession& Session() { return m_session; }

    using Scope = SessionOperations::Scope;
    // For handlers of the page and of its parts: runs `operation`, shows what it throws. False if it did not
    // come to its end.
    template <class Operation>
    bool Attempt(Operation operation) noexcept {
        if (Operations().IsClosed()) return false;
        const Scope scope(Operations());
        try {
            operation(scope);
            return true;
        } catch (...) {
            if (scope.IsSessionOpen()) ShowFailure();
            return false;
        }
    }

protected:
    SettingsPage(const SessionRules& rules, std::shared_ptr<libReplayCapture> recorder)
        : m_session(*this, rules, std::move(recorder)) {}

    const SessionOperations& Operations() const { return m_session.Operations(); }

    // For SetProfile: runs `show`; if that fails the record is as it was, `put_back` moves it into the
    // controls without a call to anybody, and the failure is shown.
    template <class Show, class PutBack>
    bool ShowOrPutBack(Show show, PutBack put_back) {
        const DynamicSettingsData kept = Data();
        return Attempt([&](const Scope& scope) {
            try {
                show();
            } catch (...) {
                if (scope.IsSessionOpen()) {
                    Data() = kept;
                    put_back();
                }
                throw;
            }
        });
    }

    // The exception that is being handled. Not once the session was ended: the page may be gone.
    void ShowFailure() noexcept;

    bool m_ready = false;
    ScannerSession m_session;
};

}  // namespace hx
