// Presets as a document that people keep and carry: the profile records one behind the other, as every
// settings document has them.
#pragma once

#include <string>
#include <vector>

#include "settings/profile/MLaserProfileSettings.h"

namespace hxctl {

// UTF-8.
std::string PresetsDocument(const std::vector<hx::MLaserProfileSettings>& profiles);

// The profiles of a document, in their order; throws a FailedCall, which names the profile, if one cannot be
// read, if two have one name, or if there is none.
std::vector<hx::MLaserProfileSettings> ReadPresetsDocument(std::wstring text);

}  // namespace hxctl
