#include "controls/profiles/ProfileNameCheck.h"

#include "controls/messages/OperatorWords.h"
#include "controls/presets/MDynamicSettingsPresets.h"
#include "controls/profiles/ProfileResources.h"
#include "core/errors/MErrorLocation.h"
#include "core/locale/CFormattedText.h"
#include "core/locale/MResourceLocale.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx {
namespace {

// A name is refused also where the text that says why is missing.
std::wstring TakenText(std::wstring_view name) {
    try {
        return FormatText(L'.', MResourceLocale::LoadStringResource(kStringProfileExists), {name});
    } catch (const MException&) {
        return std::wstring(MErrorFormatter::kNoDescription);
    }
}

}  // namespace

std::optional<ProfileNameFault> CheckProfileName(std::wstring_view name) {
    if (MDynamicSettingsPresets::GetInstance().Contains(name)) {
        return ProfileNameFault{TakenText(name), true};
    }
    try {
        MLaserProfileSettings().ValidateProfileName(name);
    } catch (const MException& exception) {
        static MErrorLocation location("CLaserProfileSaveAsDlg", "ValidateName");
        location.Set(nullptr, 47);
        if (!exception.GetChain().empty()) Dismiss(location, *exception.GetChain().back());
        return ProfileNameFault{InOperatorsWords(exception).message, false};
    }
    return std::nullopt;
}

}  // namespace hx
