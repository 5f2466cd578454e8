// How the profile list reaches the page that it is on. Implemented by the dialog base of the settings pages,
// called by the list's menu and keys. On the thread of the user interface; nothing is thrown: failures are
// shown by the page.
#pragma once

#include <string>

namespace hx {

class ICurrentPresetHandler {
public:
    // The internal name of the profile that is edited.
    virtual std::wstring GetCurrentPresetName() = 0;
    // Whether it has edits that are not stored.
    virtual bool IsModified() = 0;
    // These work on the row that is selected.
    virtual void RenamePreset() = 0;
    virtual void SaveAsPreset() = 0;
    virtual void DiscardChanges() = 0;
    virtual void DeletePreset() = 0;
    virtual ~ICurrentPresetHandler() = default;
};

}  // namespace hx
