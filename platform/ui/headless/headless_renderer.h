// A renderer without a screen, for tests and scripted runs: windows have a state and no picture, and what is
// painted is told. Fonts are the same on every machine. On the thread of the user interface.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/ui/renderer.h"

namespace hx::ui {

// One thing that a painter was asked for.
struct PaintStep {
    enum class Kind { fill, dotted_frame, ellipse, line, polygon, text, pixels };
    Kind kind = Kind::fill;
    Rectangle rectangle;
    Colour colour;
    std::wstring text;
    std::vector<FinePoint> points;
    std::vector<uint32_t> pixels;
    Size pixel_size;
};

class HX_PLATFORM_API HeadlessRenderer : public IRenderer {
public:
    // The average letter is 6 pixels wide, the line 13 pixels high.
    static std::shared_ptr<HeadlessRenderer> Make();

    // What a window, or a row of a list, paints now.
    virtual std::vector<PaintStep> Paint(Window& window) = 0;
    virtual std::vector<PaintStep> PaintRow(ListBox& list, int32_t index) = 0;
    // How often it was to be painted since it was created; those that could not wait alone.
    virtual size_t Invalidations(const Window& window) const = 0;
    virtual size_t Invalidations(const Control& control) const = 0;
    virtual size_t ImmediatePaints(const Control& control) const = 0;

    // Boxes, menus and modal dialogs that came up while no Script was in use: they went at once, with nobody
    // to see them.
    virtual size_t Unscripted() const = 0;
    // Shown and not hidden since: 1 or 0.
    virtual int32_t WaitCursors() const = 0;
    virtual size_t DiscardedMouseMessages() const = 0;
    // Of everything painted from now on.
    virtual void SetDark(bool dark) = 0;
    virtual void SetScale(double scale) = 0;
};

}  // namespace hx::ui
