// What the preview says, in one language. On the thread of the user interface.
#pragma once

#include <string>

#include "preview/PictureLayout.h"
#include "preview/SignalHint.h"

namespace hx::preview {

struct PreviewTexts {
    LayoutTexts scale;
    std::wstring weak;
    std::wstring saturated;
    std::wstring too_bright;
    std::wstring too_dark;
    std::wstring nothing_seen;

    // Empty for no hint.
    const std::wstring& Of(Hint hint) const;
};

// In the language of the tag ("de-DE"), else in that of another region, else in the module's own.
PreviewTexts LoadTexts(const std::string& language_tag);

}  // namespace hx::preview
