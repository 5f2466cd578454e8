// The list of profiles of a settings page, with its menu. It talks to its page through ICurrentPresetHandler
// alone and to the profiles through the presets manager. Rows are sorted: predefined profiles first, then the
// operator's own, each by display name without regard to case; those with edits have "*" in front. On the
// thread of the user interface.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/editor/ICurrentPresetHandler.h"
#include "controls/profiles/RowOrder.h"
#include "platform/ui/list_box.h"

namespace hx {

struct ProfileRow {
    std::wstring name;          // internal
    uint32_t user_defined = 0;  // 1 for the operator's own
    bool modified = false;      // has edits that are not stored
};

class CProfileListBox : public ui::ListBox {
public:
    // Outlives the list's rows; null for none.
    void SetHandler(ICurrentPresetHandler* handler) { m_handler = handler; }

    // Makes what is held as long as the menu is open and its command runs: the page's mark that connection
    // states are to wait. May outlive the list.
    using HoldMenu = std::function<std::shared_ptr<void>()>;
    void SetHoldMenu(HoldMenu hold_menu) { m_hold_menu = std::move(hold_menu); }

    // The rows anew from the presets manager; the handler's profile is selected, else the custom one, else
    // the first.
    void Refill();
    // By internal name without regard to case: the row, -1 for none. Select tells nobody, and leaves the
    // selection if there is none.
    int32_t SelectByName(std::wstring_view name);
    int32_t FindByName(std::wstring_view name) const;
    // Internal; "" if no row is selected.
    std::wstring SelectedName() const;
    const ProfileRow& Row(int32_t index) const;
    // The key is the internal name.
    ui::RowFacts FactsOf(int32_t index) const override;
    // The row takes the place and text that go with the mark, and is selected.
    void MarkModified(int32_t index, bool modified);
    void MarkModified(std::wstring_view name, bool modified);
    void ClearRows();

    // What is called here may destroy the list.
    bool OnKeyDown(uint32_t key) override;
    void OnContextMenu(ui::Point where) override;
    int32_t RowHeight() const override;
    void DrawRow(ui::IPainter& painter, const ui::RowDrawing& row) override;
    void Detach() override;

private:
    struct Entry {
        Entry(const std::wstring& name, std::wstring display, bool user_defined);
        std::wstring Text() const { return row.modified ? L'*' + display_name : display_name; }

        ProfileRow row;
        std::wstring display_name;
        std::wstring folded_name;
        RowOrder order;
    };
    static std::vector<Entry> MakeEntries();
    static int32_t Find(const std::vector<Entry>& entries, std::wstring_view name);
    const Entry* EntryAt(int32_t index) const;
    bool IsModified(std::wstring_view name) const;
    bool Choose(int32_t index);
    void ShowMenu(ui::Point where);

    ICurrentPresetHandler* m_handler = nullptr;
    HoldMenu m_hold_menu;
    std::vector<Entry> m_entries;  // one for each row
    int32_t m_widest_text = 0;
};

}  // namespace hx
