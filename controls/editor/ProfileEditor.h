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
#include <functional>
#include <optional>

#include "controls/editor/FlagGuard.h"
#include "controls/editor/SettingsPage.h"
#include "controls/profiles/CProfileListBox.h"

namespace hx {

class ProfileEditor : public SettingsPage {
public:
    static constexpr uint32_t kProfileList = 6000;

    ~ProfileEditor() override;

    std::wstring GetCurrentPresetName() override { return m_current_name; }
    bool IsModified() override { return m_modified; }
    void RenamePreset() override;
    void SaveAsPreset() override;
    void DiscardChanges() override;
    void DeletePreset() override;

    void SetPresets(ComPtr<IDynamicSettingsPreset> working,
                    ComPtr<IDynamicSettingsPreset> reference) override;
    void SetExposureRange(uint32_t longest_exposure_us) override {
        Data().exposure_range_max = longest_exposure_us;
    }
    bool HasEditsOf(std::wstring_view name) const override { return m_modified && name == m_current_name; }
    bool FinishReopening() override;
    ComPtr<IDynamicSettingsPreset> WorkingPreset() override { return m_edited; }

    // The host names a profile: it is selected when the page is set up next, unless another one has edits
    // then. Until then the page goes on with what it shows.
    void SetProfileToSelect(std::wstring name);
    // After every change of a control. What changes while that runs is followed at its end. Throws.
    void OnSettingChanged(bool from_sliders);
    // The list's selection changed. False only if the operator cancelled. Shows failures.
    bool OnPresetSelectionChanged();
    // The host wants to close. False if the operator cancelled, or if there were edits and anything failed,
    // unless the close before failed as well. Shows failures.
    bool CommitOnClose();

    CProfileListBox& ProfileList() { return m_list; }

protected:
    ProfileEditor(const SessionRules& rules, std::shared_ptr<libReplayCapture> recorder);

    // The page is left while a slider is held: what it has not told counts as edits. The scanner is not told.
    // Throws.
    void TakeHeldSliders();
    // For work of the page in which messages come in: the profile that is edited stays, the list's commands
    // do nothing, its row goes back, and a host that wants to close is refused. Does nothing while an
    // operation runs.
    void HoldProfile(const std::function<void()>& work) noexcept;

private:
    // What becomes of edits that are to be left.
    enum class PromptAnswer { kKeep = 0, kSave = 1, kDiscard = 2, kCancel = 3 };
    enum class Edits { kNone, kStored, kStoredAsNew, kDiscarded, kNotLeft, kCancelled };
    enum class Selection { kShown, kNotShown, kNotChanged, kCancelled };

    // The controls' values into the working preset, with the mark for edits; then to the scanner.
    void TakeControls(const Scope& scope, bool from_sliders);
    void FollowControls(const Scope& scope, bool from_sliders);

    template <class Operation>
    void Operate(Operation operation) noexcept;

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

    // The edits' profile is stored again if it is gone. False if the set-up may not go on.
    bool KeepEditedStored(const Scope& scope);
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
    // The values become a new profile, or there is none.
    void Add(IDynamicSettingsPreset& values, const std::wstring& name);
    // A profile of the operator's is there by that name, or can be.
    bool CanBeStored(const std::wstring& name) const;
    // The profile with edits, which another page has removed or renamed, is there as this page knows it.
    // False if there can be none by its name: then the edits have no row, and are kept under a new name.
    bool StoreAgain();
    // What was edited is now stored under the current name.
    void TakeEditedAsStored();
    void SetNameOf(IDynamicSettingsPreset& preset, const std::wstring& name);
    void MarkCurrent(bool modified);
    // -1 for none.
    int32_t CurrentRow() const;
    // With edits no row but that of the current profile is selected, or none.
    void SelectCurrent();
    void RefillList();

    CProfileListBox m_list;
    std::wstring m_current_name;
    ComPtr<IDynamicSettingsPreset> m_edited;
    ComPtr<IDynamicSettingsPreset> m_baseline;  // what is stored of it
    // Of a set-up, until it comes to the profiles: one that fails before takes no edits along.
    ComPtr<IDynamicSettingsPreset> m_fresh_edited;
    ComPtr<IDynamicSettingsPreset> m_fresh_baseline;
    bool m_modified = false;
    std::atomic<bool> m_in_setting_changed = false;
    std::optional<bool> m_changed_meanwhile;  // whether from sliders
    bool m_force_prompt = false;
    bool m_commit_failed = false;  // the last time
    bool m_operating = false;
    bool m_holds_profile = false;
};

}  // namespace hx
