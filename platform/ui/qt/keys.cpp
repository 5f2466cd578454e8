#include "platform/ui/qt/keys.h"

#include "platform/ui/codes.h"
#include "platform/ui/qt/conversions.h"

namespace hx::ui {

namespace {

struct KeyRow {
    uint32_t system;
    Qt::Key toolkit;
};

// The first of several rows with one number is the one that is pressed for it.
constexpr KeyRow kKeys[] = {
    {VK_BACK, Qt::Key_Backspace}, {VK_TAB, Qt::Key_Tab},      {VK_TAB, Qt::Key_Backtab},
    {VK_RETURN, Qt::Key_Return},  {VK_RETURN, Qt::Key_Enter}, {VK_ESCAPE, Qt::Key_Escape},
    {VK_SPACE, Qt::Key_Space},    {VK_PRIOR, Qt::Key_PageUp}, {VK_NEXT, Qt::Key_PageDown},
    {VK_END, Qt::Key_End},        {VK_HOME, Qt::Key_Home},    {VK_LEFT, Qt::Key_Left},
    {VK_UP, Qt::Key_Up},          {VK_RIGHT, Qt::Key_Right},  {VK_DOWN, Qt::Key_Down},
    {VK_DELETE, Qt::Key_Delete},  {VK_APPS, Qt::Key_Menu},    {VK_F2, Qt::Key_F2},
};

}  // namespace

uint32_t SystemKeyOf(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)) return 0;
    for (const KeyRow& row : kKeys) {
        if (row.toolkit == event.key()) return row.system;
    }
    return 0;
}

Qt::Key ToolkitKeyOf(uint32_t key) {
    for (const KeyRow& row : kKeys) {
        if (row.system == key) return row.toolkit;
    }
    return Qt::Key_unknown;
}

bool IsMenuKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

wchar_t MnemonicIn(const QKeyEvent& event) {
    if ((event.modifiers() & ~Qt::ShiftModifier & ~Qt::KeypadModifier) != Qt::AltModifier) return 0;
    const std::wstring typed = FromQt(event.text());
    if (typed.size() == 1 && typed[0] > L' ') return typed[0];
    constexpr int kFirstNoCharacter = 0x1000000;
    return event.key() > Qt::Key_Space && event.key() < kFirstNoCharacter ? static_cast<wchar_t>(event.key())
                                                                          : L'\0';
}

}  // namespace hx::ui
