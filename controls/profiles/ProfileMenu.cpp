#include "controls/profiles/ProfileMenu.h"

#include "controls/messages/MessageLog.h"
#include "controls/profiles/ProfileResources.h"
#include "core/errors/MErrorLocation.h"
#include "core/locale/MResourceLocale.h"
#include "platform/ui/services.h"

namespace hx {
namespace {

struct Command {
    uint32_t id;
    bool (*is_enabled)(const ProfileState& state);
    void (ICurrentPresetHandler::*run)();
};

constexpr Command kCommands[] = {
    {kCommandSaveAs, [](const ProfileState&) { return true; }, &ICurrentPresetHandler::SaveAsPreset},
    {kCommandDiscard, [](const ProfileState& state) { return state.modified; },
     &ICurrentPresetHandler::DiscardChanges},
    {kCommandDelete, [](const ProfileState& state) { return state.user_defined; },
     &ICurrentPresetHandler::DeletePreset},
    {kCommandRename, [](const ProfileState& state) { return state.user_defined && !state.modified; },
     &ICurrentPresetHandler::RenamePreset},
};

}  // namespace

std::vector<ui::MenuLine> ProfileMenuLines(const ProfileState& state) {
    const ModuleHandle module = MResourceLocale::ResourceModule();
    static const std::map<uint32_t, MenuTemplate> kNone;
    const auto& menus = module ? module->GetResources().menus : kNone;
    const auto found = menus.find(kMenuProfiles);
    if (found == menus.end()) {
        static MErrorLocation location("CProfileListBox", "OnContextMenu");
        location.Set(nullptr, 41);
        MError error = MakeError(location, L"LoadMenu");
        error.AddParameter(L"module", module ? module->FileName() : L"");
        LogDismissed(location, error);
        return {};
    }
    std::vector<ui::MenuLine> lines = ui::LinesOf(found->second);
    for (ui::MenuLine& line : lines) {
        for (const Command& command : kCommands) {
            if (command.id == line.id) line.enabled = command.is_enabled(state);
        }
    }
    return lines;
}

void RunProfileCommand(ICurrentPresetHandler& handler, uint32_t chosen) {
    for (const Command& command : kCommands) {
        if (command.id == chosen) return (handler.*command.run)();
    }
}

}  // namespace hx
