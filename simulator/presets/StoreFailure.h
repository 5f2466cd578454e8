// What a refusal of the system becomes for the store's callers. Any thread.
#pragma once

#include <string>

#include "platform/com/hresult.h"
#include "platform/system/files.h"

namespace hx::simulator {

// S_OK if nothing failed. E_ACCESSDENIED where rights are missing, else E_FAIL; `reason` names the file and
// what the system said.
HRESULT ResultOf(const FileError& error, std::wstring& reason);

// The path for people to read.
std::wstring PathText(const std::filesystem::path& path);

}  // namespace hx::simulator
