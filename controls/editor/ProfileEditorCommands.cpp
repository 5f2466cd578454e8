// The commands of the list's menu and keys.
#include <algorithm>

#include "controls/editor/ProfileOperation.h"
#include "controls/profiles/CLaserProfileSaveAsDlg.h"

namespace hx {
namespace {

// String resources: a predefined profile can neither be deleted nor be renamed.
constexpr uint32_t kCannotDelete = 9;
constexpr uint32_t kCannotRename = 43;

}  // namespace

void ProfileEditor::SaveAsPreset() {
    Operate([&](const Scope& scope) { SaveAs(scope); });
}

void ProfileEditor::RenamePreset() {
    Operate([&](const Scope& scope) { Rename(scope); });
}

void ProfileEditor::DiscardChanges() {
    Operate([&](const Scope& scope) { Discard(scope); });
}

void ProfileEditor::DeletePreset() {
    Operate([&](const Scope& scope) { Delete(scope); });
}

void ProfileEditor::SaveAs(const Scope& scope) {
    const std::wstring name = m_list.SelectedName();
    if (m_list.Selected() < 0) return;
    std::wstring new_name = m_session.Presets().DisplayName(name);
    const int32_t answer = AskName(new_name, false, false);
    if (!scope.MayGoOn() || answer != CLaserProfileSaveAsDlg::kSaved) return;
    if (m_ready) {
        UpdateSettingsFromUI(false);
        if (!scope.MayGoOn()) return;
        if (name == m_current_name) WriteBack(*m_baseline, name);
    } else {
        // The controls do not show it: it is copied as it is stored.
        const ComPtr<IDynamicSettingsPreset> stored = Stored(name);
        if (!stored) return;
        CopySettings(*stored, *m_edited);
    }
    Add(*m_edited, new_name);
    m_modified = false;
    MoveTo(new_name);
    m_session.Presets().SetSelectedName(new_name);
    m_list.Refill();
    TakeEditedAsStored();
    ChangeSelection(scope);
}

void ProfileEditor::Rename(const Scope& scope) {
    const int32_t row = m_list.Selected();
    if (row < 0) return;
    MDynamicSettingsPresets& presets = m_session.Presets();
    const std::wstring name = m_list.Row(row).name;
    std::wstring new_name = presets.DisplayName(name);
    if (m_list.Row(row).user_defined == 0) return ShowMessage(kCannotRename, new_name);
    const int32_t answer = AskName(new_name, true, false);
    if (!scope.MayGoOn() || answer != CLaserProfileSaveAsDlg::kSaved) return;
    // Another page may have deleted it. Edits of it are not lost with it.
    if (!Stored(name) && !(m_modified && StoreAgain())) {
        RefillList();
        ChangeSelection(scope);
        return;
    }
    presets.Rename(name, new_name);
    presets.SetSelectedName(new_name);
    if (name == m_current_name) {
        // What the host wants to be selected next stays so.
        const bool is_target = m_session.Target().profile_name == name;
        m_current_name = new_name;
        if (is_target) MoveTo(new_name);
    }
    m_list.Refill();
    m_list.SelectByName(new_name);
    presets.Save();
}

void ProfileEditor::Discard(const Scope& scope) {
    if (!m_ready) return;
    CopySettings(*m_baseline, *m_edited);
    const bool shown = SetProfile(m_edited);
    if (!scope.IsSessionOpen()) return;
    // The controls have the edits again: they are not dropped.
    if (!shown) return BaseDataToSettings(*m_edited);
    MarkCurrent(false);
    m_modified = false;
}

void ProfileEditor::Delete(const Scope& scope) {
    const int32_t row = m_list.Selected();
    if (row < 0) return;
    MDynamicSettingsPresets& presets = m_session.Presets();
    const std::wstring name = m_list.Row(row).name;
    if (m_list.Row(row).user_defined == 0) return ShowMessage(kCannotDelete, presets.DisplayName(name));
    presets.RemovePreset(name);
    if (name == m_current_name) m_modified = false;
    m_list.Refill();
    m_list.Select(std::min(row, m_list.Count() - 1));
    presets.SetSelectedName(m_list.SelectedName());
    // The profile is gone whether that could be stored or not.
    std::exception_ptr not_saved;
    try {
        presets.Save();
    } catch (const MException&) {
        not_saved = std::current_exception();
    }
    ChangeSelection(scope);
    if (not_saved && scope.MayGoOn()) std::rethrow_exception(not_saved);
}

}  // namespace hx
