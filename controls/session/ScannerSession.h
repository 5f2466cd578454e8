// The work of a settings page with a scanner: it gets a handle for the configured scanner from the scanner
// API, acquires it, lets the preview observe the tracking, follows the connection, and gives everything back.
// A member of its page, which tells it of what the host and the window say; on the thread of the user
// interface.
//
// A connection state that arrives while an operation runs, of the session or one that the page has marked, is
// handled when the outermost operation has ended, in order. Leaving the page, another scanner API and
// destruction cannot wait: they may come in the middle of an operation, which then does not go on.
//
// Failures are raised as an MException "PageClass.Operation:Call"; each operation says what becomes of them.
#pragma once

#include "controls/api/ApiEventsConnection.h"
#include "controls/api/libReplayCapture.h"
#include "controls/presets/PresetsReference.h"
#include "controls/session/ISessionPage.h"
#include "controls/session/SessionOperations.h"
#include "controls/session/SessionRules.h"
#include "hxapi/MGlobalScanningSettings.h"

namespace hx {

// What a page is to edit, as its host said; else what the presets manager knows.
struct SessionTarget {
    bool initialised = false;  // by the host
    std::wstring driver_internal_name;
    std::wstring device_internal_name;
    std::wstring profile_name;  // to be selected; the one being edited
};

class ApiOperation;

class ScannerSession final : private ConnectionListener {
public:
    // The page and the rules outlive the session. Counts the page in with the presets manager.
    ScannerSession(ISessionPage& page, const SessionRules& rules,
                   std::shared_ptr<libReplayCapture> recorder = libReplayCapture::GetInstance());
    // As OnDestroy, if that has not come.
    ~ScannerSession() override;

    // What the host hands over, null for none. Throws FatalComError if events are already listened to.
    void SetApi(ComPtr<IHXApi> api);
    // From the message that the events sink posts. Failures are shown and logged; those of giving back are
    // logged. Without an API nothing happens.
    void OnConnectionStateChange(int32_t state);
    // The page has no window yet. The last state that comes until it has one is followed then.
    void AwaitWindow() { m_awaits_window = true; }
    void OnWindowCreated();
    // The page is shown, or another one is. Failures are shown in the first case, logged in the second.
    void OnSelected();
    void OnDeselected();
    // The page's window goes. Nothing is done from now on; failures are logged.
    void OnDestroy();

    // Activates the preset, if the scanner is there and is the configured one. Throws.
    void ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset, bool show_wait_cursor);
    // With a handle; the scanner stops meanwhile, and stays so if the page is left in that. Throws.
    void ApplyGlobalScanningSettings(MGlobalScanningSettings settings);

    // For the page's own operations that may dispatch messages, as a SessionOperations::Scope.
    const SessionOperations& Operations() const { return m_operations; }
    SessionTarget& Target() { return m_target; }
    // Not after OnDestroy.
    MDynamicSettingsPresets& Presets() const { return *m_presets; }
    const ComPtr<IHXApi>& Api() const { return m_api; }
    const ComPtr<ICalibrationHandle>& Handle() const { return m_handle; }
    int32_t ConnectionState() const { return m_connection_state; }
    bool IsSelected() const { return m_selected; }
    bool IsHandleAcquired() const { return m_handle_acquired; }
    // Whether there is a handle to the configured scanner, which is connected.
    bool IsDeviceCurrent() const;

private:
    using Scope = SessionOperations::Scope;
    // One that the page was left in before it came to the profiles is done when it is selected again.
    enum class SetUp { kNotRunning, kRunning, kInterrupted };

    // False if it may not go on. Throws.
    bool AcquireCalibrationHandle(const Scope& scope);
    void ReleaseCalibrationHandle();
    // Logs a failure as the operation's.
    void Release(MErrorLocation& location, int32_t line);

    // These as well.
    bool StartScanner(const ApiOperation& operation, const Scope& scope);
    // What the scanner gave while the page was left is given back, unless it has been selected again. Not
    // once the session was ended.
    bool MayKeepScanner(const Scope& scope);
    bool LoadPresets(const ApiOperation& operation, const Scope& scope);
    void OnKeptConnectionState(int32_t state) override;
    Held Hold() override { return {m_page.Hold(), std::optional<PresetsReference>(std::in_place)}; }
    // False if what is left to do is to set up anew.
    bool FollowConnectionState(int32_t state);
    void Reopen(const Scope& scope);
    void EndSetUp(const Scope& scope);
    // False if the page shows no profile, or if it may not go on.
    bool Open(const Scope& scope);
    void SettleTarget();

    ISessionPage& m_page;
    const SessionRules& m_rules;
    SessionLocations& m_locations;
    SessionTarget m_target;
    PresetsReference m_presets;
    ComPtr<IHXApi> m_api;
    ComPtr<ICalibrationHandle> m_handle;
    ApiEventsConnection m_events;
    int32_t m_connection_state = HXNotConnected;
    bool m_shown = false;  // as the host said last; selected when that was followed
    bool m_selected = false;
    bool m_handle_acquired = false;
    SetUp m_set_up = SetUp::kNotRunning;
    bool m_awaits_window = false;
    std::optional<int32_t> m_awaiting_state;  // that came without one
    const std::shared_ptr<libReplayCapture> m_recorder;
    SessionOperations m_operations;
};

}  // namespace hx
