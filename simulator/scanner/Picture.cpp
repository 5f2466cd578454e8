#include "simulator/scanner/Picture.h"

#include <algorithm>
#include <cmath>

#include "simulator/scanner/Filters.h"
#include "simulator/scanner/Noise.h"

namespace hx::simulator {
namespace {

enum NoiseKind : uint32_t { kOfSignal, kOfPosition };

constexpr double kReadNoise = 2;        // of the imager, before its gain
constexpr double kShotNoise = 0.5;      // of each portion of light
constexpr double kSaturationBlur = 12;  // nobody knows where the middle of a clipped peak is

// What the imager tells of the light, and how well the place is known.
class Exposure {
public:
    Exposure(const ModelDetails& details, const OpticalSettings& settings, const Noise& noise)
        : m_deviation_mm(details.deviation_mm), m_gain(settings.gain), m_noise(noise) {}

    double SignalOf(const Sight& sight, uint32_t column) const {
        const double deviation =
            std::sqrt(m_gain * (kReadNoise * kReadNoise + kShotNoise * kShotNoise * sight.signal));
        const double signal = sight.signal + deviation * m_noise.At(column, kOfSignal);
        return std::clamp(signal, 0.0, double{kTrackingSignalSaturated});
    }

    double DepthOf(const Sight& sight, double signal, uint32_t column) const {
        const double blur = signal >= kTrackingSignalSaturated
                                ? kSaturationBlur
                                : std::sqrt(kTrackingSignalSaturated / std::max(signal, 1.0));
        return sight.y_mm + m_deviation_mm * blur * m_noise.At(column, kOfPosition);
    }

private:
    double m_deviation_mm;
    double m_gain;
    const Noise& m_noise;
};

}  // namespace

PictureMaker::PictureMaker(const ScannerModel& model) {
    m_sights.reserve(model.columns);
    m_spare.resize(model.columns);
    m_picture.points.reserve(model.columns);
}

const Picture& PictureMaker::Make(const Scene& scene, const OpticalSettings& settings) {
    const ModelDetails& details = DetailsOf(scene.model);
    const FieldOfView view = ViewOf(scene.model, settings.global);
    m_sights.resize(view.column_count);
    Look(scene, settings, view, m_sights);
    DropSteep(settings, m_sights);
    if (!settings.reflection_filter) AddReflections(details.area, m_sights, m_spare);
    DropEdges(settings, m_sights);

    const Noise noise(scene.cycle, scene.plane);
    const Exposure exposure(details, settings, noise);
    const double threshold =
        std::max(settings.signal_threshold_percent / 100 * kTrackingSignalSaturated, 1.0);
    m_picture.points.clear();
    m_picture.column_count = view.column_count;
    m_picture.saturated_count = 0;
    for (uint32_t i = 0; i < view.column_count; ++i) {
        const Sight& sight = m_sights[i];
        if (!sight.is_there) continue;
        const uint32_t column = view.first_column + i;
        const double signal = std::floor(exposure.SignalOf(sight, column));
        const double y = exposure.DepthOf(sight, signal, column);
        if (signal < threshold || y < view.near_mm || y > view.far_mm) continue;
        const double x = AcrossOf(scene.model, column) * details.area.HalfWidthAt(y);
        m_picture.points.push_back({static_cast<float>(x), static_cast<float>(y),
                                    static_cast<uint16_t>(signal), static_cast<uint16_t>(column)});
        m_picture.saturated_count += signal >= kTrackingSignalSaturated ? 1 : 0;
    }
    return m_picture;
}

}  // namespace hx::simulator
