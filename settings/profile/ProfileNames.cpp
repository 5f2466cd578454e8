// Which names a profile may bear.
#include "settings/profile/ProfileNames.h"

#include <algorithm>

#include "core/errors/MErrorLocation.h"
#include "platform/system/case_fold.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx {
namespace {

struct ReservedName {
    std::wstring_view name;
    bool only_with_custom = false;
};

constexpr ReservedName kReserved[] = {
    {kDefaultProfileName},    {kSelectedProfileName},  {kCustomProfileName, true},
    {L"$PLATEQUALIFICATION"}, {L"$SPHERECALIBRATION"}, {L"$SHEETMETAL"},
    {L"$FEATURESSHEETMETAL"}, {L"$DARKMATTE"},         {L"$DARKGLOSSY"},
    {L"$DARKEASY"},           {L"$DARKSHINY"},
};

// So that no user's profile collides with a predefined one or a placeholder.
constexpr std::wstring_view kForbiddenAtStart = L"$@*";
// None as yet.
constexpr std::wstring_view kForbiddenAnywhere;

MError NameError(const MErrorLocation& location, std::wstring_view error_name, std::wstring_view name,
                 std::wstring_view forbidden, std::wstring_view found) {
    MError error = MakeError(location, error_name);
    error.AddParameter(L"profileName", name);
    error.AddParameter(L"invalidCharacters", forbidden);
    error.AddParameter(L"invalidCharacter", found);
    return error;
}

}  // namespace

bool MLaserProfileSettings::IsReservedProfileName(std::wstring_view name, bool include_custom) {
    return std::ranges::any_of(kReserved, [&](const ReservedName& reserved) {
        return (include_custom || !reserved.only_with_custom) && EqualsWithoutCase(name, reserved.name);
    });
}

void MLaserProfileSettings::ValidateProfileName(std::wstring_view name) const {
    static MErrorLocation location("MLaserProfileSettings", "ValidateProfileName");
    if (name.empty()) {
        location.Set(this, 71);
        Throw(location, MakeError(location, L"ProfileNameEmpty"));
    }
    if (IsReservedProfileName(name, true)) {
        location.Set(this, 77);
        MError error = MakeError(location, L"ProfileNameReserved");
        error.AddParameter(L"profileName", name);
        Throw(location, error);
    }
    if (kForbiddenAtStart.find(name.front()) != std::wstring_view::npos) {
        location.Set(this, 84);
        Throw(location,
              NameError(location, L"ProfileNameStartsWith", name, kForbiddenAtStart, name.substr(0, 1)));
    }
    std::wstring found;
    for (const wchar_t forbidden : kForbiddenAnywhere) {
        if (name.find(forbidden) != std::wstring_view::npos) found += forbidden;
    }
    if (!found.empty()) {
        location.Set(this, 93);
        Throw(location, NameError(location, L"ProfileNameContains", name, kForbiddenAnywhere, found));
    }
}

}  // namespace hx
