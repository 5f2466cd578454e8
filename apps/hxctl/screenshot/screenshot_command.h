// hxctl screenshot: a page, or the preview by itself, as it looks on a screen, without one.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "apps/hxctl/scanner/desk.h"

namespace hxctl {

inline constexpr double kSmallestScale = 1;
inline constexpr double kLargestScale = 4;

// Options that not every page takes.
inline constexpr const char* kPageOptions[] = {"--preset", "--exposure", "--laser-power", "--script"};

struct ScreenshotRequest {
    std::string page;
    std::string file;  // PNG
    ScannerRequest scanner;
    PresetRequest values;
    std::string locale = "en-US";
    double scale = 1;
    bool dark = false;
    // Of the picture at 100 %; left out: what suits the page.
    std::optional<int> width;
    std::optional<int> height;
    std::string script;              // of a page; not given: connected, with the default profile
    std::vector<std::string> given;  // of kPageOptions

    bool Gives(std::string_view option) const {
        return std::find(given.begin(), given.end(), option) != given.end();
    }
};
inline constexpr int kPreviewEdge = 320;
// Of a picture, as many as an 8K screen has: more take minutes.
inline constexpr double kMostPixels = 7680.0 * 4320.0;

// hxctl screenshot PAGE OUT.png
Outcome RunScreenshot(const ScreenshotRequest& request, bool json);

// The preview, while a simulated scanner tracks, and its last cycle. Throws a FailedCall.
void SavePreviewPicture(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer);
// A page, after its script, and once the preview shows what the scanner sees. Throws a FailedCall.
void SavePagePicture(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer);

}  // namespace hxctl
