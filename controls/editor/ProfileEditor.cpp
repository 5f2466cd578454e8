#include "controls/editor/ProfileEditor.h"

#include "controls/api/ApiOperation.h"
#include "controls/editor/ProfileOperation.h"
#include "controls/profiles/CLaserProfileSaveAsDlg.h"
#include "settings/profile/ProfileNames.h"

namespace hx {
namespace {

constexpr wchar_t kPredefinedPrefix = L'$';

}  // namespace

ProfileEditor::ProfileEditor(const SessionRules& rules, std::shared_ptr<libReplayCapture> recorder)
    : SettingsPage(rules, std::move(recorder)) {
    m_list.SetHandler(this);
    m_list.SetHoldMenu([this] { return std::make_shared<Scope>(Operations()); });
}

ProfileEditor::~ProfileEditor() {
    m_list.SetHandler(nullptr);
}

void ProfileEditor::SetProfileToSelect(std::wstring name) {
    if (!m_ready) m_current_name = name;
    m_session.Target().profile_name = std::move(name);
}

void ProfileEditor::OnSettingChanged(bool from_sliders) {
    if (Operations().IsClosed() || !m_ready) return;
    const Scope scope(Operations());
    if (m_in_setting_changed.exchange(true)) {
        // A slider counts more: what was typed has moved its own.
        m_changed_meanwhile = from_sliders || m_changed_meanwhile.value_or(false);
        return;
    }
    const FlagGuard guard(m_in_setting_changed, true, Operations());
    std::exception_ptr failure;
    for (std::optional<bool> next = from_sliders; next;) {
        m_changed_meanwhile.reset();
        try {
            FollowControls(scope, *next);
        } catch (...) {
            if (!failure) failure = std::current_exception();
        }
        next = scope.MayGoOn() && m_ready ? m_changed_meanwhile : std::nullopt;
    }
    if (failure) std::rethrow_exception(failure);
}

void ProfileEditor::FollowControls(const Scope& scope, bool from_sliders) {
    TakeControls(scope, from_sliders);
    if (scope.MayGoOn()) ApplySettingsToHardware(m_edited);
}

void ProfileEditor::TakeControls(const Scope& scope, bool from_sliders) {
    try {
        UpdateSettingsFromUI(from_sliders);
        if (!scope.MayGoOn()) return;
        // Without a row they are nowhere stored, whatever they are.
        m_modified = SettingsAreDifferent(*m_baseline, *m_edited) || m_list.Selected() < 0;
    } catch (...) {
        // The controls show it, so it is not to be left without a question.
        if (scope.IsSessionOpen()) {
            m_modified = true;
            MarkCurrent(true);
        }
        throw;
    }
    MarkCurrent(m_modified);
}

void ProfileEditor::TakeHeldSliders() {
    // An operation settles what becomes of edits.
    if (!m_ready || m_operating) return UpdateSettingsFromUI(true);
    const Scope scope(Operations());
    TakeControls(scope, true);
}

void ProfileEditor::HoldProfile(const std::function<void()>& work) noexcept {
    Operate([&](const Scope&) {
        const FlagGuard holding(m_holds_profile, true, Operations());
        work();
    });
}

bool ProfileEditor::OnPresetSelectionChanged() {
    if (m_holds_profile) SelectCurrent();
    Selection selection = Selection::kNotChanged;
    Operate([&](const Scope& scope) { selection = ChangeSelection(scope); });
    return selection != Selection::kCancelled;
}

bool ProfileEditor::CommitOnClose() {
    // There is nothing left to lose.
    if (Operations().IsClosed()) return true;
    bool may_close = false;
    Operate([&](const Scope& scope) {
        const bool had_edits = m_modified;
        std::exception_ptr failure;
        // Whatever of it fails, the rest is done; the operator is told of the first.
        const auto done = [&](auto step) {
            try {
                step();
                return true;
            } catch (...) {
                if (!failure) failure = std::current_exception();
                return false;
            }
        };
        bool cancelled = false;
        done([&] {
            const FlagGuard forced(m_force_prompt, true, Operations());
            cancelled = ChangeSelection(scope) == Selection::kCancelled;
        });
        if (scope.MayGoOn()) {
            const bool stored = done([&] {
                if (m_session.Presets().Count() > 0) m_session.Presets().Save();
            });
            const bool shows_row = m_list.Selected() >= 0 || !m_modified;
            if (stored && shows_row && m_session.Presets().Count() > 0) done([&] { ReportSelectedPreset(); });
            // Edits must not go with the page: the operator, who was told, may look after them. Without any,
            // or if it fails again, nobody is locked in.
            may_close = !cancelled && (!failure || !had_edits || m_commit_failed);
            m_commit_failed = failure != nullptr;
        }
        if (failure) std::rethrow_exception(failure);
    });
    return may_close;
}

int32_t ProfileEditor::AskName(std::wstring& name, bool rename_mode, bool prompt_mode) {
    CLaserProfileSaveAsDlg dialog(&OwnWindow(), rename_mode, prompt_mode);
    return dialog.Run(name);
}

void ProfileEditor::MoveTo(const std::wstring& name) {
    m_current_name = name;
    m_session.Target().profile_name = name;
}

ComPtr<IDynamicSettingsPreset> ProfileEditor::Stored(const std::wstring& name) const {
    return m_session.Presets().FindPresetExactly(name);
}

bool ProfileEditor::WriteBack(IDynamicSettingsPreset& source, const std::wstring& name) {
    const ComPtr<IDynamicSettingsPreset> stored = Stored(name);
    if (stored) CopySettings(source, *stored);
    return static_cast<bool>(stored);
}

void ProfileEditor::Add(IDynamicSettingsPreset& values, const std::wstring& name) {
    MDynamicSettingsPresets& presets = m_session.Presets();
    const ComPtr<IDynamicSettingsPreset> added = presets.CreateNewPreset();
    CopySettings(values, *added);
    try {
        presets.SetPreset(name, added);
    } catch (...) {
        // Else the name would be taken when the operator tries again.
        presets.RemovePreset(name);
        throw;
    }
}

bool ProfileEditor::CanBeStored(const std::wstring& name) const {
    if (name.starts_with(kPredefinedPrefix)) return false;
    // Names that differ in their case alone are one to the operator.
    return Stored(name) || !m_session.Presets().Contains(name);
}

bool ProfileEditor::StoreAgain() {
    if (m_current_name == kCustomProfileName) {
        m_session.Presets().SetCustomPreset();
        return WriteBack(*m_baseline, m_current_name);
    }
    if (!CanBeStored(m_current_name)) return false;
    Add(*m_baseline, m_current_name);
    return true;
}

void ProfileEditor::TakeEditedAsStored() {
    try {
        CopySettings(*m_edited, *m_baseline);
    } catch (...) {
        // The baseline has values of the profile before: none of them may get into this one.
        m_ready = false;
        EnableControls(false);
        throw;
    }
}

void ProfileEditor::SetNameOf(IDynamicSettingsPreset& preset, const std::wstring& name) {
    static MErrorLocation location("BaseDynamicSettingsDlg", "OnPresetSelectionChanged");
    ApiOperation(location, this).Check(119, L"SetName", preset.SetName(Bstr(name).get()));
}

void ProfileEditor::MarkCurrent(bool modified) {
    const int32_t selected = m_list.Selected();
    // Most slider movements change nothing here, and a long list is not to be searched for it.
    if (selected >= 0) {
        const ProfileRow& row = m_list.Row(selected);
        if (row.name == m_current_name && row.modified == modified) return;
    }
    m_list.MarkModified(CurrentRow(), modified);
}

int32_t ProfileEditor::CurrentRow() const {
    const int32_t row = m_list.FindByName(m_current_name);
    return row >= 0 && m_list.Row(row).name == m_current_name ? row : -1;
}

void ProfileEditor::SelectCurrent() {
    if (!m_modified) {
        m_list.SelectByName(m_current_name);
    } else {
        m_list.Select(CurrentRow());
    }
}

void ProfileEditor::RefillList() {
    m_list.Refill();
    if (!m_modified || CurrentRow() >= 0) return;
    // A name that differs in its case is another profile's.
    m_list.MarkModified(m_current_name, false);
    m_list.Select(-1);
}

}  // namespace hx
