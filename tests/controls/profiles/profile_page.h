// A page with a list of profiles that notes what it is asked for, and presets that no scanner has: for tests
// of the list and of what belongs to it, on the renderer without a screen.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/presets/PresetsReference.h"
#include "controls/profiles/CProfileListBox.h"
#include "platform/module/resources.h"
#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/core/log/log_fixture.h"

namespace hx {

// With a dialog 1 of these controls.
inline ModuleHandle ModuleOf(const std::wstring& controls) {
    ResourceError error;
    const std::wstring head = L"1 DIALOGEX 0, 0, 200, 200\nSTYLE WS_POPUP\nFONT 8, \"MS Shell Dlg\"\nBEGIN\n";
    return MakeResourceModule(L"", ReadResourceScript(head + controls + L"\nEND\n", error).value());
}

class ScreenTest : public LogTest {
protected:
    ScreenTest() : m_before(ui::SetRenderer(m_renderer)) {}
    ~ScreenTest() override {
        EXPECT_EQ(m_script.Unanswered(), m_expected_unanswered);
        EXPECT_EQ(m_renderer->Unscripted(), 0U);
        ui::SetRenderer(m_before);
    }
    ui::IUser& User() { return m_renderer->User(); }

    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = ui::HeadlessRenderer::Make();
    const std::shared_ptr<ui::IRenderer> m_before;
    ui::Script m_script;
    size_t m_expected_unanswered = 0;
};

class ProfilesTest : public ScreenTest {
protected:
    // A display name behind "=", if it is another.
    void Fill(const std::vector<std::wstring>& presets) {
        while (m_presets->Count() > 0) m_presets->RemovePreset(std::wstring(m_presets->At(0).name));
        for (const std::wstring& preset : presets) {
            const size_t equals = preset.find(L'=');
            m_presets->SetPreset(preset.substr(0, equals), nullptr);
            m_presets->SetDisplayName(preset.substr(0, equals), preset.substr(equals + 1));
        }
    }

    PresetsReference m_presets;
};

class ProfilePage final : public ui::Dialog, public ICurrentPresetHandler {
public:
    enum class Prompt { cancel, discard, close };

    explicit ProfilePage(std::wstring profile = {}, bool has_edits = false)
        : current(std::move(profile)), modified(has_edits) {
        Bind(6000, list);
        list.SetHandler(this);
        EXPECT_FALSE(Create(ModuleOf(L"LISTBOX 6000, 4, 4, 100, 190, WS_TABSTOP"), 1, nullptr));
        Show(true);
        list.Refill();
    }
    ~ProfilePage() override { Destroy(); }

    std::wstring GetCurrentPresetName() override { return current; }
    bool IsModified() override { return modified; }
    void RenamePreset() override { calls += L"rename "; }
    void SaveAsPreset() override { calls += L"save "; }
    void DiscardChanges() override { calls += L"discard "; }
    void DeletePreset() override { calls += L"delete "; }

    void OnCommand(ui::Control&, uint32_t code) override {
        if (code != LBN_SELCHANGE) return;
        const std::wstring selected = list.SelectedName();
        calls += L"to" + selected + L' ';
        if (modified && prompt == Prompt::close) return Destroy();
        const bool stays = (modified && prompt == Prompt::cancel) || selected == refused;
        if (!stays && std::exchange(modified, false)) list.MarkModified(current, false);
        if (!stays) current = selected;
        list.SelectByName(current);
    }

    std::wstring Rows() const {
        std::wstring rows;
        for (int32_t i = 0; i < list.Count(); ++i) {
            rows += (i == 0 ? L"" : L", ") + list.RowText(i) + (list.Selected() == i ? L"<" : L"");
        }
        return rows;
    }

    CProfileListBox list;
    std::wstring current;
    bool modified;
    Prompt prompt = Prompt::cancel;
    std::wstring refused;  // cannot be selected
    std::wstring calls;
};

}  // namespace hx
