// The dialogs of every language are laid out: nothing sticks out, overlaps or is cut off.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/system/utf8.h"
#include "tests/resources/scripts.h"

namespace {

using hx_test::Kind;
using hx_test::KindOf;
using hx_test::Script;
using hx_test::Scripts;

// Estimates in half dialog units, on the wide side for the usual fonts. The average letter is 4 units wide.
int32_t HalfUnits(wchar_t character) {
    constexpr std::wstring_view kNarrow = L" \u00A0.,:;'’!|()[]-–fijlrtI";
    constexpr std::wstring_view kWide = L"mwMW%@";
    constexpr wchar_t kFirstOfTheEast = 0x2E80;
    if (character >= kFirstOfTheEast) {
        return 17;
    }
    if (kNarrow.find(character) != std::wstring_view::npos) {
        return 5;
    }
    if (kWide.find(character) != std::wstring_view::npos) {
        return 13;
    }
    return (character >= L'A' && character <= L'Z') || character >= 0x80 ? 10 : 8;
}

int32_t TextWidth(std::wstring_view text) {
    int32_t half_units = 0;
    for (const wchar_t character : hx_test::Shown(text)) {
        half_units += HalfUnits(character);
    }
    return (half_units + 1) / 2;
}

// How wide a text may be in the control, over all its lines.
int32_t RoomForText(const hx::DialogControl& control) {
    constexpr int32_t kLineHeight = 8;
    constexpr int32_t kBrokenLineUse = 80;  // percent: a line is rarely filled to its end
    const int32_t width = control.rectangle.width;
    switch (KindOf(control)) {
        case Kind::check_box:
            return width - 12;
        case Kind::push_button:
            return width - 8;
        case Kind::group:
            return width - 12;
        default:
            break;
    }
    const int32_t lines = control.rectangle.height / kLineHeight;
    return lines > 1 ? width * lines * kBrokenLineUse / 100 : width;
}

// What a control covers while nothing is dropped down from it.
hx::DialogRectangle Covered(const hx::DialogControl& control) {
    hx::DialogRectangle rectangle = control.rectangle;
    if (KindOf(control) == Kind::combo_box) {
        rectangle.height = 14;
    }
    return rectangle;
}

bool Contains(const hx::DialogRectangle& outer, const hx::DialogRectangle& inner) {
    return outer.x <= inner.x && outer.y <= inner.y && inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

bool Overlap(const hx::DialogRectangle& a, const hx::DialogRectangle& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

bool MayShareSpace(const hx::DialogControl& a, const hx::DialogControl& b) {
    if (!Overlap(Covered(a), Covered(b))) {
        return true;
    }
    return (KindOf(a) == Kind::group && Contains(a.rectangle, Covered(b))) ||
           (KindOf(b) == Kind::group && Contains(b.rectangle, Covered(a)));
}

const hx::DialogControl& ControlOf(const hx::DialogTemplate& dialog, uint32_t id) {
    for (const hx::DialogControl& control : dialog.controls) {
        if (control.id == id) {
            return control;
        }
    }
    throw std::out_of_range("no control " + std::to_string(id));
}

class Layout : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Modules, Layout, testing::Values(hx_test::kPages, hx_test::kHost));

TEST_P(Layout, ControlsLieInTheirDialogAndApart) {
    for (const Script& script : Scripts(GetParam())) {
        for (const auto& [id, dialog] : script.resources.dialogs) {
            SCOPED_TRACE(script.tag + ", dialog " + std::to_string(id));
            const hx::DialogRectangle client = {0, 0, dialog.rectangle.width, dialog.rectangle.height};
            for (size_t i = 0; i < dialog.controls.size(); ++i) {
                const hx::DialogControl& control = dialog.controls[i];
                EXPECT_TRUE(Contains(client, Covered(control))) << control.id;
                EXPECT_TRUE(control.rectangle.width > 0 && control.rectangle.height > 0) << control.id;
                for (size_t j = 0; j < i; ++j) {
                    EXPECT_TRUE(MayShareSpace(dialog.controls[j], control))
                        << dialog.controls[j].id << " and " << control.id;
                }
            }
        }
    }
}

TEST_P(Layout, TextsFitTheirControls) {
    constexpr int32_t kTitleButtons = 40;
    for (const Script& script : Scripts(GetParam())) {
        for (const auto& [id, dialog] : script.resources.dialogs) {
            SCOPED_TRACE(script.tag + ", dialog " + std::to_string(id));
            EXPECT_LE(TextWidth(dialog.caption), dialog.rectangle.width - kTitleButtons);
            for (const hx::DialogControl& control : dialog.controls) {
                EXPECT_LE(TextWidth(control.text), RoomForText(control)) << hx::ToUtf8(control.text);
            }
        }
    }
}

TEST(LayoutOfModules, TextsThatAreSetLaterFitTheirControls) {
    struct LaterText {
        uint32_t dialog;
        uint32_t control;
        uint32_t string;
        const char* module = hx_test::kPages;
    };
    constexpr uint32_t kOk = 1;
    constexpr LaterText kLater[] = {
        // frame rate
        {203, 228, 11},
        {280, 228, 11},
        // buttons of the dialog that asks for a name: Save, Rename, Discard
        {205, kOk, 46},
        {205, kOk, 48},
        {205, kOk, 49},
        {205, 284, 46},
        // values of the diagnostics without a scanner
        {208, 235, 30},
        {208, 236, 30},
        {208, 231, 30},
        {208, 234, 30},
        {208, 238, 30},
        {208, 242, 30},
        {208, 244, 30},
        // what the desktop host says in the place of a page, and below it
        {100, 1003, 2, hx_test::kHost},
        {100, 1040, 21, hx_test::kHost},
        {100, 1040, 24, hx_test::kHost},
        {100, 1040, 25, hx_test::kHost},
    };
    const std::wstring widest_number = L"00000";
    for (const LaterText& later : kLater) {
        for (const Script& script : Scripts(later.module)) {
            SCOPED_TRACE(script.tag);
            std::wstring text = script.resources.strings.at(later.string);
            if (const size_t number = text.find(L"%d"); number != std::wstring::npos) {
                text.replace(number, 2, widest_number);
            }
            const hx::DialogControl& control =
                ControlOf(script.resources.dialogs.at(later.dialog), later.control);
            EXPECT_LE(TextWidth(text), RoomForText(control)) << hx::ToUtf8(text);
        }
    }
}

}  // namespace
