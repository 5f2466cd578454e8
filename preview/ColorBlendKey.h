// The registry value that decides how the preview shows signals. Any thread.
#pragma once

namespace hx::preview {

// False if the value is there and 0: then colours change in steps, not continuously. Anything else, and no
// value at all, blends.
bool IsColorBlendWanted();

}  // namespace hx::preview
