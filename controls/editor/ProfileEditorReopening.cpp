// What a set-up means for the profiles: after a scanner was connected, edits are still there.
#include "controls/editor/ProfileEditor.h"

namespace hx {

void ProfileEditor::SetPresets(ComPtr<IDynamicSettingsPreset> working,
                               ComPtr<IDynamicSettingsPreset> reference) {
    m_fresh_edited = std::move(working);
    m_fresh_baseline = std::move(reference);
}

bool ProfileEditor::FinishReopening() {
    const Scope scope(Operations());
    if (m_modified && !KeepEditedStored(scope)) return false;
    return m_modified ? ReopenWithEdits(scope) : ReopenSelected(scope);
}

bool ProfileEditor::KeepEditedStored(const Scope& scope) {
    if (Stored(m_current_name)) return true;
    // If that fails the page goes on with the edits all the same: they are stored when they are left.
    Attempt([this](const Scope&) { StoreAgain(); });
    return scope.MayGoOn();
}

void ProfileEditor::TakeFreshPresets() {
    m_edited = std::move(m_fresh_edited);
    m_baseline = std::move(m_fresh_baseline);
}

bool ProfileEditor::ReopenWithEdits(const Scope& scope) {
    BaseDataToSettings(*m_fresh_edited);
    const ComPtr<IDynamicSettingsPreset> stored = Stored(m_current_name);
    CopySettings(stored ? *stored : *m_baseline, *m_fresh_baseline);
    SetNameOf(*m_fresh_edited, m_current_name);
    SetNameOf(*m_fresh_baseline, m_current_name);
    TakeFreshPresets();
    // Nowhere stored, it is as good as an edit.
    m_modified = SettingsAreDifferent(*m_baseline, *m_edited) || !stored;
    SessionTarget& target = m_session.Target();
    if (!target.initialised) target.profile_name = m_current_name;
    RefillList();
    return SetProfile(m_edited) && scope.MayGoOn();
}

bool ProfileEditor::ReopenSelected(const Scope& scope) {
    m_ready = false;
    TakeFreshPresets();
    m_current_name = m_session.Target().profile_name;
    m_list.Refill();
    if (ChangeSelection(scope) != Selection::kShown) return false;
    if (!TakesShownValues()) return true;
    BaseDataToSettings(*m_edited);
    UpdateExposureText();
    CopySettings(*m_edited, *m_baseline);
    return true;
}

}  // namespace hx
