// Asks the operator for the name of a profile: to save one, to rename one, or when a predefined profile with
// edits is left. Made for one question. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ui/dialog.h"

namespace hx {

class CLaserProfileSaveAsDlg final : public ui::Dialog {
public:
    static constexpr int32_t kSaved = 1;      // or renamed; the name is good
    static constexpr int32_t kCancelled = 2;  // or could not be shown, which was told
    static constexpr int32_t kDiscarded = 3;  // only where there was something to discard

    // `parent` may be null. With neither it saves; rename mode renames; prompt mode asks whether to save
    // edits.
    CLaserProfileSaveAsDlg(ui::Window* parent, bool rename_mode, bool prompt_mode);

    // `name` is what the suggestion is made of; when saved it is what was entered, else "".
    int32_t Run(std::wstring& name);

    void OnCommand(ui::Control& control, uint32_t code) override;

protected:
    bool OnInitDialog() override;
    void OnOk() override;
    void OnCreateFailed(const ui::DialogError& error) override;

private:
    void SetTexts();
    std::wstring Suggestion() const;
    void Save();

    ui::Window* const m_owner;
    const bool m_rename_mode;
    const bool m_prompt_mode;
    std::wstring m_name;
    ui::Edit m_name_edit;
    ui::Button m_ok_button;      // discards, when there are edits to discard
    ui::Button m_custom_button;  // saves, then
};

}  // namespace hx
