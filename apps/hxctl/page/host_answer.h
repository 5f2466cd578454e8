// What a page answers to its host, as a script tells it.
#pragma once

#include "apps/hosting/HostedPage.h"

namespace hxctl {

// Throws an Impossible for a failure.
void CheckAnswer(const char* operation, const hosting::Answer& answer);

}  // namespace hxctl
