#include <algorithm>

#include "platform/ui/dialog.h"
#include "platform/ui/dialog_units.h"
#include "platform/ui/renderer.h"

namespace hx::ui {

Control* Dialog::Find(uint32_t id) const {
    const auto found = std::find_if(m_controls.begin(), m_controls.end(),
                                    [&](Control* control) { return control->Id() == id; });
    return found == m_controls.end() ? nullptr : *found;
}

StaticText* Dialog::LabelOf(const Control& control) const {
    auto place = std::find(m_controls.begin(), m_controls.end(), &control);
    if (place == m_controls.end()) return nullptr;
    while (place != m_controls.begin()) {
        --place;
        if ((*place)->Kind() == ControlKind::static_text) return dynamic_cast<StaticText*>(*place);
    }
    return nullptr;
}

Rectangle Dialog::FromDialogUnits(const DialogRectangle& units) const {
    return PixelsOf(units, m_base_units);
}

std::optional<Size> Dialog::SizeOf(const ModuleHandle& module, uint32_t template_id) {
    const IRenderer* const renderer = CurrentRenderer();
    if (!module || !renderer) return {};
    const auto found = module->GetResources().dialogs.find(template_id);
    if (found == module->GetResources().dialogs.end()) return {};
    const DialogTemplate& dialog = found->second;
    const FontUnits letter = renderer->DialogFont(dialog.font_face, dialog.font_points);
    return PixelsOf(dialog.rectangle, {letter.average_width, letter.height}).Size();
}

void Dialog::SetAnchors(std::vector<AnchorRule> rules) {
    m_anchors = std::move(rules);
    LayOut();
}

void Dialog::OnSize(const Size& /*size*/) {
    LayOut();
}

// A component that is moved may do anything, also away with the dialog.
void Dialog::LayOut() {
    const WindowHandle handle = Handle();
    for (size_t i = 0; FromHandle(handle) == this && i < m_controls.size(); ++i) {
        const auto rule = std::find_if(m_anchors.begin(), m_anchors.end(), [&](const AnchorRule& candidate) {
            return candidate.id == m_controls[i]->Id();
        });
        if (rule == m_anchors.end()) continue;
        m_controls[i]->Move(Anchored(m_template_bounds[i], *rule, m_template_size, ClientSize()));
    }
}

}  // namespace hx::ui
