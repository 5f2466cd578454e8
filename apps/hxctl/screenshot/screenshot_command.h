// hxctl screenshot: a page, or the preview by itself, as it looks on a screen, without one.
#pragma once

#include <string>

#include "apps/hxctl/scanner/desk.h"

namespace hxctl {

inline constexpr double kSmallestScale = 1;
inline constexpr double kLargestScale = 4;

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
    std::string script;  // of a page; empty: connected, with the default profile
};
inline constexpr int kPreviewEdge = 320;

// hxctl screenshot PAGE OUT.png
Outcome RunScreenshot(const ScreenshotRequest& request, bool json);

// The preview, while a simulated scanner tracks, and its last cycle. Throws a FailedCall.
void SavePreviewPicture(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer);
// A page, after its script, and once the preview shows what the scanner sees. Throws a FailedCall.
void SavePagePicture(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer);

}  // namespace hxctl
