// The page that shows what the connected scanner tells of itself: type, numbers, dates and versions. Nothing
// on it can be changed. The child window of its control, which forwards the host's calls; on the thread of
// the user interface.
//
// A connection state is followed when nothing else runs: not before there is a window, and not while a box of
// the page is open; then in order. When the window goes the page is at its end, also in the middle of that.
#pragma once

#include <memory>

#include "controls/api/ApiEventsConnection.h"
#include "controls/api/cHXApiEventsSinkSimple.h"
#include "controls/diagnostics/DiagnosticValues.h"
#include "controls/session/SessionOperations.h"
#include "hxapi/IHXApi.h"
#include "platform/ui/dialog.h"

namespace hx {

class CDiagnosticsDlg final : public ui::Dialog,
                              public cHXApiEventsSinkSimple<CDiagnosticsDlg>,
                              private ConnectionListener {
public:
    static constexpr uint32_t kTemplate = 208;

    CDiagnosticsDlg();
    ~CDiagnosticsDlg() override;

    // The host's calls, in any order. What cannot be read is told to the operator.
    void SetApi(ComPtr<IHXApi> api);
    HRESULT OnSelected();
    HRESULT OnDeselected();

private:
    using Scope = SessionOperations::Scope;

    bool OnInitDialog() override;
    void OnSize(const ui::Size& size) override;
    void OnDestroy() override;
    void OnMessage(const WindowMessage& message) override;

    void OnConnectionStateChange(int32_t state);
    void OnKeptConnectionState(int32_t state) override;
    void Fill();
    // Nothing is known; what is hidden stays so.
    void Reset();
    void ShowDevice(const MHXFamilyDeviceProperties& device);
    void ShowText(const DiagnosticValue& row, const std::wstring& text);
    void ShowWholeTexts();
    void EndSession() noexcept;

    // None that is told at first, so that the first one counts as a change.
    static constexpr int32_t kNoState = 2;

    ComPtr<IHXApi> m_api;
    ApiEventsConnection m_events;
    int32_t m_connection_state = kNoState;
    bool m_selected = false;
    SessionOperations m_operations;
    std::unique_ptr<Scope> m_awaiting_window;
};

}  // namespace hx
