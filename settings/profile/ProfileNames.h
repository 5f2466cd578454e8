// The names of profiles that are not the user's own. For the profile record, the presets manager and the
// pages. Any thread.
#pragma once

namespace hx {

inline constexpr wchar_t kDefaultProfileName[] = L"$DEFAULT";
// Stands for the profile that is selected.
inline constexpr wchar_t kSelectedProfileName[] = L"@SELECTEDPROFILENAME";
// The profile that was changed and not saved.
inline constexpr wchar_t kCustomProfileName[] = L"$CUSTOM";

}  // namespace hx
