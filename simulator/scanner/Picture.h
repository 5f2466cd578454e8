// One laser line as the scanner tells it. The same model, settings, surface, cycle and plane give the same
// picture, whoever asks and whenever. A maker keeps its memory from one picture to the next; one thread at a
// time per maker.
#pragma once

#include <vector>

#include "hxapi/ITrackingCycleObserver.h"
#include "simulator/scanner/Optics.h"

namespace hx::simulator {

struct Picture {
    std::vector<TrackingPoint> points;  // by their columns
    uint32_t column_count = 0;
    uint32_t saturated_count = 0;
};

class PictureMaker {
public:
    // Takes all the memory that pictures of this model need.
    explicit PictureMaker(const ScannerModel& model);

    // Good until the next one is made.
    const Picture& Make(const Scene& scene, const OpticalSettings& settings);

private:
    std::vector<Sight> m_sights;
    std::vector<Sight> m_spare;
    Picture m_picture;
};

}  // namespace hx::simulator
