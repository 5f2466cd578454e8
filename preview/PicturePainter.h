// Draws the preview: areas, scale and explanations once for each size and set of areas, the points upon a
// copy of that, texts by the painter. Keeps its pictures. On the thread of the user interface.
#pragma once

#include <optional>
#include <vector>

#include "preview/PictureLayout.h"
#include "preview/PreviewScene.h"
#include "preview/PreviewTexts.h"
#include "preview/Raster.h"
#include "preview/SignalColours.h"

namespace hx::preview {

class PicturePainter {
public:
    PicturePainter(PreviewTexts texts, bool blend) : m_texts(std::move(texts)), m_blend(blend) {}

    const PreviewTexts& Texts() const { return m_texts; }
    void Paint(ui::IPainter& painter, ui::Size size, const PreviewScene& scene);
    // Fonts may be others now: everything is drawn anew.
    void Forget() { m_ground.reset(); }

private:
    // What the part that does not move depends on.
    struct Ground {
        ui::Size size;
        double scale = 0;
        ui::Colour window;
        ui::Colour text;
        uint64_t areas_version = 0;
        bool operator==(const Ground&) const = default;
    };

    void MakeGround(const ui::IPainter& painter, const Ground& ground, const PreviewScene& scene);
    int32_t HintLines(const ui::IPainter& painter, int32_t width) const;
    void DrawGrid();
    void DrawAreas(const std::vector<PlaneArea>& areas);
    void DrawLegend(const ui::IPainter& painter);
    void DrawPoints(const PreviewScene& scene);
    void PaintTexts(ui::IPainter& painter) const;
    void PaintHint(ui::IPainter& painter, Hint hint) const;
    ui::FinePoint Device(ui::FinePoint point) const;
    ui::Rectangle Device(const ui::Rectangle& rectangle) const;

    const PreviewTexts m_texts;
    const bool m_blend;
    std::optional<Ground> m_ground;
    SignalColours m_colours;
    PictureLayout m_layout;
    double m_scale = 1;  // device pixels
    Raster m_ground_picture;
    Raster m_picture;
    std::optional<uint64_t> m_drawn_version;  // of the scene, in the picture
    ui::Rectangle m_weak;                     // places of the legend's texts
    ui::Rectangle m_saturated;
};

}  // namespace hx::preview
