// What a session asks of the page that it belongs to. Implemented by a page, called by its ScannerSession on
// the thread of the user interface. Hooks may throw an MException unless they say otherwise; it then counts
// as a failure of the operation that called. ErrorBox, FinishReopening and LeaveControls may dispatch
// messages, in which the page may be left, given another scanner API, or ended.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "core/errors/MException.h"
#include "hxapi/IDynamicSettingsPreset.h"
#include "platform/com/comptr.h"

namespace hx {

class ISessionPage {
public:
    virtual ~ISessionPage() = default;

    // Whoever has this keeps the page; empty if it is not shared.
    virtual std::shared_ptr<void> Hold() { return {}; }

    // A new listener for events of the scanner API; and those that an older one has posted are not to come.
    virtual ComPtr<IUnknown> MakeEventsSink() = 0;
    virtual void ForgetEvents() = 0;
    // A connection state was told, whatever becomes of it.
    virtual void NoteConnectionState() {}

    // The scanner cannot be used any more, or was given back: it is gone, or suspended.
    virtual void OnScannerUnusable() noexcept {}

    // Shows the failure to the operator and returns when that is done.
    virtual void ErrorBox(const MException& exception) noexcept = 0;
    // The wait cursor is shown as long as somebody holds this; it may outlive the page.
    virtual std::shared_ptr<void> ShowWaitCursor() = 0;
    virtual void EnableControls(bool enable) noexcept = 0;

    // The preview, as it observes tracking cycles; and it is to show nothing.
    virtual ComPtr<IUnknown> TrackingObserver() = 0;
    virtual void ResetPreview() = 0;

    // Whether the page holds edits of that profile, which then has to stay. May be asked at any time.
    virtual bool HasEditsOf(std::wstring_view) const { return false; }

    // The rest of a set-up, in this order: fresh presets to work with and to compare with; the gains; the
    // longest exposure of the device; then the profile list, its selection and everything that shows it, with
    // which the page is ready: false if the profile cannot be shown, which the operator was told.
    virtual void SetPresets(ComPtr<IDynamicSettingsPreset> working,
                            ComPtr<IDynamicSettingsPreset> reference) = 0;
    virtual void FillGainList() = 0;
    virtual void SetExposureRange(uint32_t longest_exposure_us) = 0;
    virtual bool FinishReopening() = 0;

    // The preset that the controls change; empty before the first set-up.
    virtual ComPtr<IDynamicSettingsPreset> WorkingPreset() = 0;
    virtual void RefreshFrameRate() noexcept = 0;
    // The exposure in rows, after a preset was activated.
    virtual void RefreshExposureRows() = 0;
    // What the page does to its controls when it is left; the scanner was given back.
    virtual void LeaveControls() = 0;
};

}  // namespace hx
