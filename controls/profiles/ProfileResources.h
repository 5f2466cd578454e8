// The numbers in the resource scripts of what has to do with the list of profiles.
#pragma once

#include <cstdint>

namespace hx {

inline constexpr uint32_t kStringNewProfile = 4;
inline constexpr uint32_t kStringProfileExists = 5;
inline constexpr uint32_t kStringSaveTitle = 44;
inline constexpr uint32_t kStringRenameTitle = 45;
inline constexpr uint32_t kStringSave = 46;
inline constexpr uint32_t kStringRename = 48;
inline constexpr uint32_t kStringDiscard = 49;
inline constexpr uint32_t kStringInternalError = 213;

inline constexpr uint32_t kDialogProfileName = 205;
inline constexpr uint32_t kEditProfileName = 226;
inline constexpr uint32_t kButtonCustom = 284;

inline constexpr uint32_t kMenuProfiles = 262;
inline constexpr uint32_t kCommandDelete = 32771;
inline constexpr uint32_t kCommandRename = 32772;
inline constexpr uint32_t kCommandSaveAs = 32773;
inline constexpr uint32_t kCommandDiscard = 32774;

}  // namespace hx
