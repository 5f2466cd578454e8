#include "platform/ui/services.h"

#include "platform/system/case_fold.h"
#include "platform/ui/script.h"

namespace hx::ui {
namespace {

int32_t g_wait_cursors = 0;

void ShowRendererWaitCursor(bool shown) {
    if (IRenderer* const renderer = CurrentRenderer()) renderer->ShowWaitCursor(shown);
}

// Where the "&" is that marks the next character; "&&" is a character. npos for none.
size_t MarkIn(std::wstring_view text) {
    for (size_t at = text.find(L'&'); at != std::wstring_view::npos; at = text.find(L'&', at + 2)) {
        if (at + 1 < text.size() && text[at + 1] != L'&') return at;
    }
    return std::wstring_view::npos;
}

}  // namespace

void ShowMessageBox(Window* owner, const std::wstring& caption, const std::wstring& text, BoxIcon icon) {
    if (Script* const script = Script::Current()) {
        script->Show(owner, caption, text, icon);
    } else if (IRenderer* const renderer = CurrentRenderer()) {
        renderer->ShowMessageBox(owner, caption, text, icon);
    }
}

std::vector<MenuLine> LinesOf(const MenuTemplate& menu) {
    std::vector<MenuLine> lines;
    if (menu.items.empty()) return lines;
    for (const MenuItem& item : menu.items.front().items) {
        const bool enabled = (item.flags & (kMenuGrayed | kMenuInactive)) == 0;
        lines.push_back({item.id, item.text, enabled, (item.flags & kMenuSeparator) != 0});
    }
    return lines;
}

uint32_t RunMenu(Window& owner, Point where, const std::vector<MenuLine>& lines) {
    if (Script* const script = Script::Current()) return script->Run(owner, where, lines);
    IRenderer* const renderer = CurrentRenderer();
    return renderer ? renderer->RunMenu(owner, where, lines) : 0;
}

std::shared_ptr<void> ShowWaitCursor() {
    if (g_wait_cursors++ == 0) ShowRendererWaitCursor(true);
    return {nullptr, [](void*) {
                if (--g_wait_cursors == 0) ShowRendererWaitCursor(false);
            }};
}

void DiscardMouseMessages() {
    if (IRenderer* const renderer = CurrentRenderer()) renderer->DiscardMouseMessages();
}

bool CopyToClipboard(const std::wstring& text) {
    IRenderer* const renderer = CurrentRenderer();
    return renderer && renderer->CopyToClipboard(text);
}

std::wstring WithoutMnemonic(std::wstring_view text) {
    std::wstring plain;
    plain.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        // A mark goes, and what it marks stays, another "&" too.
        if (text[i] == L'&' && i + 1 < text.size()) ++i;
        plain.push_back(text[i]);
    }
    return plain;
}

wchar_t MnemonicOf(std::wstring_view text) {
    const size_t mark = MarkIn(text);
    return mark == std::wstring_view::npos ? L'\0' : FoldCase(text[mark + 1]);
}

}  // namespace hx::ui
