#include "controls/profiles/ProfileNameCheck.h"

#include "controls/presets/MDynamicSettingsPresets.h"
#include "controls/profiles/ProfileResources.h"
#include "core/errors/MErrorLocation.h"
#include "core/locale/CFormattedText.h"
#include "core/locale/MResourceLocale.h"
#include "core/messages/MErrorFormatter.h"
#include "core/messages/MErrorFormatterResource.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx {
namespace {

// A name is refused also where the text that says why is missing.
template <class MakeText>
std::wstring TextOrNone(MakeText make_text) {
    try {
        return make_text();
    } catch (const MException&) {
        return std::wstring(MErrorFormatter::kNoDescription);
    }
}

std::wstring MessageOf(const MException& exception) {
    static const bool added = [] {
        MErrorFormatter::Get().AddRule(MErrorFormatterResource::Get());
        return true;
    }();
    return added ? MErrorFormatter::Get().Format(exception).message : std::wstring();
}

}  // namespace

std::optional<ProfileNameFault> CheckProfileName(std::wstring_view name) {
    if (MDynamicSettingsPresets::GetInstance().Contains(name)) {
        const auto taken = [&] {
            return FormatText(L'.', MResourceLocale::LoadStringResource(kStringProfileExists), {name});
        };
        return ProfileNameFault{TextOrNone(taken), true};
    }
    try {
        MLaserProfileSettings().ValidateProfileName(name);
    } catch (const MException& exception) {
        static MErrorLocation location("CLaserProfileSaveAsDlg", "ValidateName");
        location.Set(nullptr, 47);
        if (!exception.GetChain().empty()) Dismiss(location, *exception.GetChain().back());
        return ProfileNameFault{TextOrNone([&] { return MessageOf(exception); }), false};
    }
    return std::nullopt;
}

}  // namespace hx
