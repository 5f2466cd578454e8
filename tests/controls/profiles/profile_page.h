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

namespace hx {

// Shown as long as it lives, with the controls of that text.
inline ModuleHandle ModuleOf(const std::wstring& controls) {
    ResourceError error;
    auto resources = ReadResourceScript(
        L"1 DIALOGEX 0, 0, 200, 200\nSTYLE WS_POPUP | WS_CAPTION\nFONT 8, \"MS Shell Dlg\"\nBEGIN\n" +
            controls + L"\nEND\n",
        error);
    return MakeResourceModule(L"", std::move(resources.value()));
}

class ScreenTest : public testing::Test {
protected:
    ScreenTest() : m_before(ui::SetRenderer(m_renderer)) {}
    ~ScreenTest() override { ui::SetRenderer(m_before); }

    ui::IUser& User() { return m_renderer->User(); }

    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = ui::HeadlessRenderer::Make();
    ui::Script m_script;

private:
    const std::shared_ptr<ui::IRenderer> m_before;
};

class ProfilesTest : public ScreenTest {
protected:
    // A display name behind "=", if it is another.
    void Fill(const std::vector<std::wstring>& presets) {
        for (const std::wstring& preset : presets) {
            const size_t equals = preset.find(L'=');
            const std::wstring name = preset.substr(0, equals);
            m_presets->SetPreset(name, nullptr);
            if (equals != std::wstring::npos) m_presets->SetDisplayName(name, preset.substr(equals + 1));
        }
    }

    PresetsReference m_presets;
};

class ProfilePage final : public ui::Dialog, public ICurrentPresetHandler {
public:
    enum class Prompt { cancel, discard, close };

    ProfilePage() {
        Bind(6000, list);
        list.SetHandler(this);
        const auto error =
            Create(ModuleOf(L"LISTBOX 6000, 4, 4, 100, 190, LBS_OWNERDRAWFIXED | WS_TABSTOP"), 1, nullptr);
        EXPECT_FALSE(error);
        Show(true);
    }
    ~ProfilePage() override { Destroy(); }

    std::wstring GetCurrentPresetName() override { return current; }
    bool IsModified() override { return modified; }
    void RenamePreset() override { Note(L"rename"); }
    void SaveAsPreset() override { Note(L"save"); }
    void DiscardChanges() override { Note(L"discard"); }
    void DeletePreset() override { Note(L"delete"); }

    void OnCommand(ui::Control& control, uint32_t code) override {
        if (&control != &list || code != LBN_SELCHANGE) return Dialog::OnCommand(control, code);
        const std::wstring selected = list.SelectedName();
        Note(L"to " + selected);
        if (modified && prompt == Prompt::close) return Destroy();
        if (modified && prompt == Prompt::cancel) {
            list.SelectByName(current);
            return;
        }
        if (std::exchange(modified, false)) list.MarkModified(current, false);
        if (selected != refused) current = selected;
        list.SelectByName(current);
    }

    std::wstring Rows() const {
        std::wstring rows;
        for (int32_t i = 0; i < list.Count(); ++i) {
            rows += (i == 0 ? L"" : L", ") + list.RowText(i) + (list.Selected() == i ? L"<" : L"");
        }
        return rows;
    }
    std::wstring TakeCalls() { return std::exchange(m_calls, {}); }

    CProfileListBox list;
    std::wstring current;
    bool modified = false;
    Prompt prompt = Prompt::cancel;
    std::wstring refused;  // cannot be selected

private:
    void Note(const std::wstring& call) { m_calls += (m_calls.empty() ? L"" : L", ") + call; }

    std::wstring m_calls;
};

}  // namespace hx
