#include <algorithm>

#include "platform/ui/attachment.h"
#include "platform/ui/codes.h"
#include "platform/ui/controls.h"

namespace hx::ui {

void Edit::OnAttached(const DialogControl& /*line*/) {
    m_selection = {};
}

void Edit::SetText(std::wstring text) {
    if (text.size() > kTextLimit) text.resize(kTextLimit);
    Take(std::move(text), {});
}

void Edit::UserEnter(std::wstring text, Selection selection) {
    text.resize(std::min({text.find_first_of(L"\r\n"), text.size(), kTextLimit}));
    Take(std::move(text), selection);
}

// Whoever is told may set another text, or destroy the dialog.
void Edit::Take(std::wstring text, Selection selection) {
    KeepText(std::move(text));
    m_selection = {std::min(selection.start, Text().size()), std::min(selection.end, Text().size())};
    if (!Parent()) return;
    Changed(ControlChange::text);
    const Attachment attachment(*this);
    OnUpdate();
    if (attachment.Get() && Tell(EN_UPDATE)) Tell(EN_CHANGE);
}

void Edit::SetSelection(Selection selection) {
    m_selection = {std::min(selection.start, Text().size()), std::min(selection.end, Text().size())};
    Changed(ControlChange::selection);
}

void Edit::UserSelect(Selection selection) {
    m_selection = {std::min(selection.start, Text().size()), std::min(selection.end, Text().size())};
}

void Edit::OnFocus(bool gained) {
    Tell(gained ? EN_SETFOCUS : EN_KILLFOCUS);
}

}  // namespace hx::ui
