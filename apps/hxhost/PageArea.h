// The pages of the hardware configuration, of which one is shown at a time in its place of the window. Each
// is opened when it is first chosen; one that cannot be shown says why in its place. On the thread of the
// user interface.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>

#include "apps/hosting/HostedPage.h"
#include "apps/hxhost/HostTexts.h"
#include "apps/hxhost/SimulatedScanner.h"
#include "platform/ui/controls.h"

namespace hxhost {

struct PageRow {
    const wchar_t* prog_id;
    uint32_t name;  // a string's id
};
// All that there are; another page is another row.
std::span<const PageRow> Pages();

// Where the page is: its controls come in this one's place when Tab goes through the window.
class PagePlace final : public hx::ui::StaticText {
public:
    // That is shown here from now on, and lives as long as this.
    void Hold(const hosting::HostedPage& page) { m_page = &page; }
    hx::ui::Window* Inner() const override;

private:
    const hosting::HostedPage* m_page = nullptr;
};

class PageArea {
public:
    PageArea(SimulatedScanner& scanner, const HostTexts& texts, std::span<const PageRow> rows = Pages());

    void BindTo(hx::ui::Dialog& dialog);
    // Once the controls are there: the choice of pages.
    void Fill();
    // The chosen page gets the place, and is opened if it is not.
    void ShowChosen();
    bool IsOpen() const { return Current().IsCreated(); }
    // One at least, shown or not.
    bool HasOpen() const;
    // Whether it is one of them, and could be created.
    bool IsInstalled(std::wstring_view prog_id) const;
    // For somebody who reads it and has no other page behind: the page of that class that is shown, or else a
    // new one behind that, which meets the scanner as it is now and is not selected. Null on failure.
    hosting::Answer OpenBehind(std::wstring_view prog_id, hosting::HostedPage*& page);
    void CloseBehind() { m_behind.Close(); }
    // All of them, with what was edited in them.
    void Close();
    void Move();
    const hx::ui::ComboBox& Choice() const { return m_choice; }

    // Whether the window may close; and what was said if a page failed. Asks every open page until one
    // refuses.
    hosting::Answer Save(bool& may_close);
    // The profile that the page shown has selected.
    std::wstring Profile() const { return Current().Selected().value_or(std::wstring()); }

private:
    hosting::HostedPage& Current() { return m_pages.at(m_current); }
    const hosting::HostedPage& Current() const { return m_pages.at(m_current); }
    // Null for none of them.
    const PageRow* Find(std::wstring_view prog_id) const;
    // Shown and selected, or neither.
    hosting::Answer Open(hosting::HostedPage& page, const PageRow& row, bool shown);
    void Explain(const hosting::Answer& failure);

    SimulatedScanner& m_scanner;
    const HostTexts& m_texts;
    const std::span<const PageRow> m_rows;
    std::deque<hosting::HostedPage> m_pages;  // one for each row
    hosting::HostedPage m_behind;
    size_t m_current = 0;
    hx::ui::ComboBox m_choice;
    PagePlace m_place;
};

}  // namespace hxhost
