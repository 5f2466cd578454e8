// What happens when another profile is selected: first to the edits of the one that is left, then the other
// one is shown.
#include "controls/editor/ProfileOperation.h"
#include "controls/profiles/CLaserProfileSaveAsDlg.h"
#include "settings/profile/ProfileNames.h"

namespace hx {

ProfileEditor::PromptAnswer ProfileEditor::PromptSaveChanges(std::wstring& name) {
    if (!m_modified) return PromptAnswer::kDiscard;
    if (CanBeStored(name)) return PromptAnswer::kKeep;
    std::wstring entered = m_session.Presets().DisplayName(name);
    switch (AskName(entered, false, true)) {
        case CLaserProfileSaveAsDlg::kSaved:
            name = entered;
            return PromptAnswer::kSave;
        case CLaserProfileSaveAsDlg::kDiscarded:
            return PromptAnswer::kDiscard;
        default:
            return PromptAnswer::kCancel;
    }
}

ProfileEditor::Selection ProfileEditor::ChangeSelection(const Scope& scope) {
    OnPresetSelectionChanging();
    const Edits left = m_modified ? SettleEdits(scope) : Edits::kNone;
    if (left == Edits::kCancelled) return Selection::kCancelled;
    return left == Edits::kNotLeft ? Selection::kNotChanged : ShowSelected(scope, left);
}

ProfileEditor::Edits ProfileEditor::SettleEdits(const Scope& scope) {
    std::wstring selected = m_list.SelectedName();
    std::wstring name = m_current_name;
    // Without a selection they have no row.
    if (selected.empty()) selected = name;
    if (!m_force_prompt && selected == name) return Edits::kNotLeft;
    SelectCurrent();
    const PromptAnswer answer = PromptSaveChanges(name);
    if (!scope.MayGoOn()) return Edits::kCancelled;
    switch (answer) {
        case PromptAnswer::kKeep:
            return KeepEdits(scope, selected);
        case PromptAnswer::kSave:
            return SaveEditsAs(scope, name, selected);
        case PromptAnswer::kDiscard:
            return DropEdits(selected);
        default:
            SelectCurrent();
            return Edits::kCancelled;
    }
}

// In each of these the row stays where it is until all that may fail is done.

ProfileEditor::Edits ProfileEditor::KeepEdits(const Scope& scope, const std::wstring& selected) {
    UpdateSettingsFromUI(false);
    if (!scope.MayGoOn()) return Edits::kCancelled;
    if (!WriteBack(*m_edited, m_current_name)) {
        // Another page has removed or renamed it.
        Add(*m_edited, m_current_name);
        RefillList();
    }
    MarkCurrent(false);
    m_list.SelectByName(selected);
    m_session.Presets().SetSelectedName(selected);
    m_modified = false;
    return Edits::kStored;
}

ProfileEditor::Edits ProfileEditor::SaveEditsAs(const Scope& scope, const std::wstring& new_name,
                                                const std::wstring& selected) {
    UpdateSettingsFromUI(false);
    if (!scope.MayGoOn()) return Edits::kCancelled;
    WriteBack(*m_baseline, m_current_name);
    Add(*m_edited, new_name);
    MarkCurrent(false);
    m_modified = false;
    const bool stays = selected == m_current_name;
    // Should the selected one not be shown, the new one stays in the controls.
    MoveTo(new_name);
    if (!stays) {
        m_list.SelectByName(selected);
        return Edits::kStoredAsNew;
    }
    m_list.Refill();
    m_session.Presets().SetSelectedName(new_name);
    TakeEditedAsStored();
    return Edits::kNotLeft;
}

ProfileEditor::Edits ProfileEditor::DropEdits(const std::wstring& selected) {
    WriteBack(*m_baseline, m_current_name);
    MarkCurrent(false);
    m_list.SelectByName(selected);
    m_modified = false;
    // They had no row, and there is nothing to go back to.
    if (m_list.Selected() < 0) m_list.Refill();
    return Edits::kDiscarded;
}

ProfileEditor::Selection ProfileEditor::ShowSelected(const Scope& scope, Edits left) {
    const int32_t row = m_list.Selected();
    EnableControls(row >= 0);
    if (row < 0) {
        m_ready = false;
        return Selection::kNotShown;
    }
    const std::wstring name = m_list.Row(row).name;
    const ComPtr<IDynamicSettingsPreset> preset = Stored(name);
    bool shown = false;
    try {
        if (preset) {
            SetNameOf(*preset, name);
            shown = SetProfile(preset);
        } else {
            // Another page has deleted it. Edits that were kept would else be stored with the next profile.
            m_list.Refill();
            if (left == Edits::kStored) {
                m_session.Presets().SetSelectedName(m_current_name);
                m_session.Presets().Save();
            }
        }
    } catch (...) {
        if (scope.IsSessionOpen()) StayWithCurrent(left);
        throw;
    }
    // Also if the page was left meanwhile: the controls and the profile have to agree.
    if (!scope.IsSessionOpen()) return Selection::kNotChanged;
    if (shown) return Load(scope, name, preset);
    StayWithCurrent(left);
    return Selection::kNotShown;
}

ProfileEditor::Selection ProfileEditor::Load(const Scope& scope, const std::wstring& name,
                                             const ComPtr<IDynamicSettingsPreset>& preset) {
    MDynamicSettingsPresets& presets = m_session.Presets();
    // The controls show the new profile, whatever fails now: none of it may get into the one before.
    m_ready = false;
    MoveTo(name);
    std::exception_ptr not_saved;
    try {
        CopySettings(*preset, *m_edited);
        SetNameOf(*m_edited, name);
        presets.SetSelectedName(name);
        try {
            presets.Save();
        } catch (const MException&) {
            not_saved = std::current_exception();
        }
        CopySettings(*preset, *m_baseline);
        SetNameOf(*m_baseline, name);
        m_ready = true;
    } catch (...) {
        if (scope.IsSessionOpen()) EnableControls(false);
        throw;
    }
    if (not_saved) std::rethrow_exception(not_saved);
    if (!scope.MayGoOn()) return Selection::kNotChanged;
    const bool shown = SetProfile(m_edited);
    if (!scope.MayGoOn()) return Selection::kNotChanged;
    if (!shown) {
        m_list.SelectByName(kDefaultProfileName);
        return Selection::kNotShown;
    }
    m_list.Refill();
    ReportSelectedPreset();
    return Selection::kShown;
}

// The selected profile could not be shown: the controls have the values from before.
void ProfileEditor::StayWithCurrent(Edits left) {
    if (left == Edits::kStoredAsNew) m_list.Refill();
    const int32_t row = CurrentRow();
    if (row >= 0) m_list.Select(row);
    if (!m_ready || row < 0) return HoldSelectedUnshown();
    if (left == Edits::kStored || left == Edits::kStoredAsNew) TakeEditedAsStored();
    if (left == Edits::kDiscarded) {
        // They are still in the controls, and so not dropped.
        m_modified = true;
        MarkCurrent(true);
    }
}

// There is nothing that the controls could show. What is stored takes no harm, and can be saved by another
// name.
void ProfileEditor::HoldSelectedUnshown() {
    m_ready = false;
    EnableControls(false);
    m_current_name = m_list.SelectedName();
    const ComPtr<IDynamicSettingsPreset> stored = Stored(m_current_name);
    if (!stored) return;
    for (const auto& preset : {m_edited, m_baseline}) {
        CopySettings(*stored, *preset);
        SetNameOf(*preset, m_current_name);
    }
}

}  // namespace hx
