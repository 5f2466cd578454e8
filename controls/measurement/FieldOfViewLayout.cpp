#include "controls/measurement/FieldOfViewLayout.h"

#include "controls/parts/DialogParts.h"
#include "controls/parts/PageControls.h"

namespace hx {
namespace {

constexpr uint32_t kWidthControls[] = {kWidthSlider, kWidthFullLabel, kWidthHalfLabel};
constexpr uint32_t kHeightControls[] = {kHeightSlider, kHeightFullLabel, kHeightHalfLabel};

constexpr int32_t kWidth = 1;
constexpr int32_t kHeight = 2;
constexpr int32_t kBoth = kWidth | kHeight;

}  // namespace

void FieldOfViewLayout::LayOut(int32_t config) {
    if (config < 0 || config > kBoth) return;
    ShowControls(m_dialog, kWidthControls, (config & kWidth) != 0);
    ShowControls(m_dialog, kHeightControls, (config & kHeight) != 0);
    ShowControl(m_dialog, kFrameRateLabel, config != 0);

    ui::Control* const preview = m_dialog.Find(kPreviewControl);
    if (!preview) return;
    ui::Rectangle room = PlaceOf(*preview);
    const ui::Control* const height_slider = m_dialog.Find(kHeightSlider);
    const ui::Control* const frame_rate = m_dialog.Find(kFrameRateLabel);
    if (config != kBoth && height_slider) room.right = height_slider->Bounds().left;
    // Over the row of the slider that is not there.
    if (config == 0 && frame_rate) room.bottom = frame_rate->Bounds().bottom;
    // Last: a component that is moved may do anything.
    preview->Move(room);
}

const ui::Rectangle& FieldOfViewLayout::PlaceOf(const ui::Control& preview) {
    // The anchors follow the size of the dialog: as long as that is the same the preview is where it was put
    // here.
    const ui::Size size = m_dialog.ClientSize();
    if (m_size != size) {
        m_size = size;
        m_place = preview.Bounds();
    }
    return m_place;
}

}  // namespace hx
