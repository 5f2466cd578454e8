// Editing of profiles, as the two settings pages share it: the list of profiles, the one that is edited and
// what is stored of it, the questions when edits would be lost, and the commands of the list's menu. A page
// derives from it through BaseDynamicSettingsDlg, and binds the list to kProfileList of its template. On the
// thread of the user interface.
//
// The page may be left or closed whenever something is shown or asked: an operation then ends where it is.
// Connection states that arrive meanwhile are handled when it has ended. Failures are raised as an MException
// "BaseDynamicSettingsDlg.Operation:Call", and shown by whatever started the operation.
#pragma once

#include <atomic>

#include "controls/editor/DynamicSettings.h"
#include "controls/editor/FlagGuard.h"
#include "controls/editor/ICurrentPresetHandler.h"
#include "controls/profiles/CProfileListBox.h"
#include "controls/session/ScannerSession.h"
#include "platform/ui/window.h"

namespace hx {

class ProfileEditor : public ICurrentPresetHandler, public ISessionPage, public DynamicSettings {
public:
    static constexpr uint32_t kProfileList = 6000;

    ProfileEditor(const ProfileEditor&) = delete;
    ProfileEditor& operator=(const ProfileEditor&) = delete;
    ~ProfileEditor() override;

    std::wstring GetCurrentPresetName() override { return m_current_name; }
    bool IsModified() override { return m_modified; }
    void RenamePreset() override;
    void SaveAsPreset() override;
    void DiscardChanges() override;
    void DeletePreset() override;

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
    // In front of which boxes and questions come up.
    virtual ui::Window& OwnWindow() = 0;

    void SetPresets(ComPtr<IDynamicSettingsPreset> working,
                    ComPtr<IDynamicSettingsPreset> reference) override;
    void SetExposureRange(uint32_t longest_exposure_us) override {
        Data().exposure_range_max = longest_exposure_us;
    }
    bool FinishReopening() override;
    ComPtr<IDynamicSettingsPreset> WorkingPreset() override { return m_edited; }

    // The host names a profile: it is selected when the page is set up next, unless another one has edits
    // then. Until then the page goes on with what it shows.
    void SetProfileToSelect(std::wstring name);
    // After every change of a control. Throws.
    void OnSettingChanged(bool from_sliders);
    // The list's selection changed. False only if the operator cancelled. Shows failures.
    bool OnPresetSelectionChanged();
    // The host wants to close. False if the operator cancelled, or edits could not be stored. Shows failures.
    bool CommitOnClose();

    // Whether the working preset, the record and the controls are those of the current profile.
    bool IsReady() const { return m_ready; }
    CProfileListBox& ProfileList() { return m_list; }
    ScannerSession& Session() { return m_session; }

protected:
    using Scope = SessionOperations::Scope;

    ProfileEditor(const SessionRules& rules, std::shared_ptr<libReplayCapture> recorder);

    const SessionOperations& Operations() const { return m_session.Operations(); }

    // For handlers of the page: runs `operation`, shows what it throws. False if it did not come to its end.
    template <class Operation>
    bool Attempt(Operation operation) noexcept {
        if (Operations().IsClosed()) return false;
        const Scope scope(Operations());
        try {
            operation(scope);
            return true;
        } catch (...) {
            ShowFailure(scope);
            return false;
        }
    }

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

private:
    // What becomes of edits that are to be left.
    enum class PromptAnswer { kKeep = 0, kSave = 1, kDiscard = 2, kCancel = 3 };
    enum class Edits { kNone, kStored, kStoredAsNew, kDiscarded, kNotLeft, kCancelled };
    enum class Selection { kShown, kNotShown, kNotChanged, kCancelled };

    template <class Operation>
    bool Operate(Operation operation) noexcept;
    // The exception that is being handled.
    void ShowFailure(const Scope& scope) noexcept;

    // `name` is that of the profile; when saved, the new one.
    PromptAnswer PromptSaveChanges(std::wstring& name);
    Edits SettleEdits(const Scope& scope);
    Edits KeepEdits(const Scope& scope, const std::wstring& selected);
    Edits SaveEditsAs(const Scope& scope, const std::wstring& new_name, const std::wstring& selected);
    Edits DropEdits(const std::wstring& selected);
    Selection ChangeSelection(const Scope& scope);
    Selection ShowSelected(const Scope& scope, Edits left);
    Selection Load(const Scope& scope, const std::wstring& name,
                   const ComPtr<IDynamicSettingsPreset>& preset);
    void StayWithCurrent(Edits left);
    void HoldSelectedUnshown();

    bool ReopenWithEdits(const Scope& scope);
    bool ReopenSelected(const Scope& scope);
    void TakeFreshPresets();

    void SaveAs(const Scope& scope);
    void Rename(const Scope& scope);
    void Discard(const Scope& scope);
    void Delete(const Scope& scope);

    // A result of CLaserProfileSaveAsDlg.
    int32_t AskName(std::wstring& name, bool rename_mode, bool prompt_mode);
    // The profile that is edited is that one from now on; so it is when the page is set up again.
    void MoveTo(const std::wstring& name);
    // The stored preset of exactly that name; empty if there is none.
    ComPtr<IDynamicSettingsPreset> Stored(const std::wstring& name) const;
    // Nothing happens to a profile that is gone; tells whether it is there.
    bool WriteBack(IDynamicSettingsPreset& source, const std::wstring& name);
    // The working preset becomes a new profile, or there is none.
    void AddEdited(const std::wstring& name);
    void SetNameOf(IDynamicSettingsPreset& preset, const std::wstring& name);
    void MarkCurrent(bool modified);

    CProfileListBox m_list;
    std::wstring m_current_name;
    ComPtr<IDynamicSettingsPreset> m_edited;
    ComPtr<IDynamicSettingsPreset> m_baseline;  // what is stored of it
    // Of a set-up, until it comes to the profiles: one that fails before takes no edits along.
    ComPtr<IDynamicSettingsPreset> m_fresh_edited;
    ComPtr<IDynamicSettingsPreset> m_fresh_baseline;
    bool m_modified = false;
    bool m_ready = false;
    std::atomic<bool> m_in_setting_changed = false;
    bool m_force_prompt = false;
    bool m_operating = false;
    ScannerSession m_session;
};

}  // namespace hx
