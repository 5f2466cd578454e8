// Where the machine and its users keep their files. This is the one place that maps the folders of the text
// that other systems use to those of this one. Any thread. Throws std::bad_alloc only.
#pragma once

#include <string>

#include "platform/com/hresult.h"
#include "platform/system/files.h"

namespace hx {

// With the system's numbers.
enum class SpecialFolder : uint32_t {
    // HX_DATA if that is set (as for everything that runs from a build); else /var/lib where this process may
    // write there; else the user's own, XDG_STATE_HOME or ~/.local/state.
    kAllUsersData = 0x23,
    kUserData = 0x1A,  // XDG_DATA_HOME or ~/.local/share
    kProgramFiles = 0x26,
    kCommonFiles = 0x2B,  // components that programs share
    kCommonFiles32 = 0x2C,
};

// Absolute, without a separator at the end unless it is the system's root; it need not exist. On failure
// `path` is unchanged: E_INVALIDARG for an unknown folder, E_FAIL if the user has no home or its name is no
// text.
HX_PLATFORM_API HRESULT FindSpecialFolder(SpecialFolder folder, std::wstring& path);

// kAllUsersData as the machine has it, whoever asks: HX_DATA or /var/lib, though this process may be unable
// to write there. Fails as FindSpecialFolder does.
HX_PLATFORM_API HRESULT FindMachineData(std::wstring& path);

// The first that is set of TMPDIR, TMP, TEMP and TEMPDIR, else /tmp; E_FAIL if that is no folder. Ends as
// those above do. On failure `path` is unchanged.
HX_PLATFORM_API HRESULT FindTemporaryFolder(std::wstring& path);

// Whether this process may make files in the folder, which it may have to make first.
HX_PLATFORM_API bool MayWriteIn(const std::filesystem::path& folder);

// Makes the folder, and those above it, unless they are there.
HX_PLATFORM_API FileError MakeFolder(const std::filesystem::path& folder);

// Between the names of a path. Texts that were written elsewhere may have "\" at the end of a folder.
inline constexpr wchar_t kPathSeparator = L'/';
inline bool EndsWithSeparator(std::wstring_view path) {
    return path.ends_with(kPathSeparator) || path.ends_with(L'\\');
}

}  // namespace hx
