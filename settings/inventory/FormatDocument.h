// The document of the settings format, made of the tables by which records are read and written. Any thread.
#pragma once

#include <string>
#include <string_view>

#include "core/records/VersionSet.h"

namespace hx {

// Markdown in UTF-8: what a settings document is, and a section with a table for each record class.
std::string FormatDocument();

// What is said in front of the tables.
std::string_view FormatIntroduction();

// "all", "3 to 6", "0, 2 to 4", "none": those of the versions up to `newest`.
std::string VersionsText(VersionSet versions, uint32_t newest);

}  // namespace hx
