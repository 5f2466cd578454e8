#include "controls/profiles/CLaserProfileSaveAsDlg.h"

#include <utility>

#include "controls/messages/MessageLog.h"
#include "controls/messages/OperatorWords.h"
#include "controls/presets/MDynamicSettingsPresets.h"
#include "controls/profiles/ProfileNameCheck.h"
#include "controls/profiles/ProfileResources.h"
#include "controls/profiles/SuggestedName.h"
#include "core/locale/MResourceLocale.h"
#include "core/messages/MErrorFormatter.h"
#include "platform/ui/codes.h"
#include "platform/ui/services.h"

namespace hx {
namespace {

// By the horizontal centre and the bottom.
ui::AnchorRule Below(uint32_t id) {
    return {id, 0.5, 1, 0.5, 1};
}

// The log has it as the operator reads it.
void ShowError(ui::Window* owner, const MErrorLocation& location, const std::wstring& text) {
    LogText(location, text);
    ui::ShowMessageBox(owner, {}, text, ui::BoxIcon::error);
}

}  // namespace

CLaserProfileSaveAsDlg::CLaserProfileSaveAsDlg(ui::Window* parent, bool rename_mode, bool prompt_mode)
    : m_owner(parent), m_rename_mode(rename_mode), m_prompt_mode(prompt_mode) {
    Bind(kEditProfileName, m_name_edit);
    Bind(IDOK, m_ok_button);
    Bind(kButtonCustom, m_custom_button);
}

int32_t CLaserProfileSaveAsDlg::Run(std::wstring& name) {
    m_name = std::exchange(name, {});
    switch (RunModal(MResourceLocale::ResourceModule(), kDialogProfileName, m_owner)) {
        case kSaved:
            name = m_name;
            return kSaved;
        case kDiscarded:
            return kDiscarded;
        default:
            return kCancelled;
    }
}

bool CLaserProfileSaveAsDlg::OnInitDialog() {
    SetAnchors({{kEditProfileName, 0, 0, 1, 0}, Below(kButtonCustom), Below(IDOK), Below(IDCANCEL)});
    if (m_prompt_mode) {
        SetDefaultButton(m_custom_button);
    } else {
        m_custom_button.Show(false);
    }
    SetTexts();
    m_name_edit.SetText(Suggestion());
    m_name_edit.SelectAll();
    m_name_edit.SetFocus();
    return false;
}

std::wstring CLaserProfileSaveAsDlg::Suggestion() const {
    const MDynamicSettingsPresets& presets = MDynamicSettingsPresets::GetInstance();
    return SuggestedName(m_name, TextOrNothing(kStringNewProfile),
                         [&](std::wstring_view name) { return presets.Contains(name); });
}

// Of a language that lacks one of them, those of the template stay.
void CLaserProfileSaveAsDlg::SetTexts() {
    const std::wstring title = TextOrNothing(m_rename_mode ? kStringRenameTitle : kStringSaveTitle);
    const std::wstring save = TextOrNothing(m_rename_mode ? kStringRename : kStringSave);
    const std::wstring discard = TextOrNothing(kStringDiscard);
    if (title.empty() || save.empty() || (m_prompt_mode && discard.empty())) return;
    SetCaption(title);
    if (m_prompt_mode) m_ok_button.SetText(discard);
    (m_prompt_mode ? m_custom_button : m_ok_button).SetText(save);
}

void CLaserProfileSaveAsDlg::OnOk() {
    if (m_prompt_mode) {
        EndDialog(kDiscarded);
    } else {
        Save();
    }
}

void CLaserProfileSaveAsDlg::OnCommand(ui::Control& control, uint32_t code) {
    if (&control == &m_custom_button && code == BN_CLICKED) return Save();
    Dialog::OnCommand(control, code);
}

void CLaserProfileSaveAsDlg::Save() {
    static MErrorLocation location("CLaserProfileSaveAsDlg", "ValidateName");
    std::wstring name(TrimmedName(m_name_edit.Text()));
    const std::optional<ProfileNameFault> fault = CheckProfileName(name);
    if (!fault) {
        m_name = std::move(name);
        return EndDialog(kSaved);
    }
    location.Set(this, 107);
    ShowError(this, location, fault->message);
    // The box dispatches messages: whoever owns the dialog may have ended it.
    if (!IsCreated() || HasEnded()) return;
    m_name_edit.SetFocus();
    if (fault->taken) m_name_edit.SelectAll();
}

void CLaserProfileSaveAsDlg::OnCreateFailed(const ui::DialogError& failure) {
    static MErrorLocation location("CLaserProfileSaveAsDlg", "Run");
    location.Set(this, 120);
    LogDialogError(location, failure);
    const std::wstring text = TextOrNothing(kStringInternalError);
    ShowError(m_owner, location, text.empty() ? std::wstring(MErrorFormatter::kNoDescription) : text);
}

}  // namespace hx
