#include "simulator/scanner/Optics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "hxapi/ITrackingCycleObserver.h"

namespace hx::simulator {
namespace {

// Of the longest exposure: so long takes white paper at full power to fill the imager's range.
constexpr double kWhiteExposure = 0.1;
constexpr double kGlossExponent = 24;
constexpr double kTravelPerSecond = 0.5;
constexpr double kTravelPerPlane = 0.2;  // the planes lie one behind the other
constexpr double kDegrees = 180 / std::numbers::pi;

class Ray {
public:
    Ray(const MeasurementArea& area, double across) : m_area(area), m_across(across) {}

    struct Meeting {
        SurfaceSpot spot;
        double y_mm;
        double slope;  // in millimetres
    };

    // Newton's steps, short ones where the surface runs along the ray. At a jump they end on either side.
    Meeting Meet(const Surface& surface, double travel) const {
        const double middle_half_width = (m_area.near_half_width_mm + m_area.far_half_width_mm) / 2;
        const double to_mm = m_area.Depth() / middle_half_width;
        double y = m_area.near_mm + m_area.Depth() / 2;
        Meeting meeting{};
        for (int step = 0; step < 3; ++step) {
            meeting.spot = surface.at(m_across * m_area.HalfWidthAt(y) / middle_half_width, travel);
            meeting.slope = meeting.spot.slope * to_mm;
            const double seen = m_area.near_mm + meeting.spot.depth * m_area.Depth();
            y += (seen - y) / (1 - std::clamp(meeting.slope * m_across * m_area.Spread(), -0.8, 0.8));
        }
        meeting.y_mm = y;
        return meeting;
    }

    // The cosine between the beam and the surface's normal; not positive where the beam cannot reach.
    double Incidence(double slope) const {
        const double sideways = m_across * m_area.Spread();
        return (1 - slope * sideways) / std::sqrt((1 + slope * slope) * (1 + sideways * sideways));
    }

private:
    const MeasurementArea& m_area;
    double m_across;
};

// Light for white paper in the middle of the measurement area, straight in front.
double WhiteSignal(const ScannerModel& model, const OpticalSettings& settings) {
    return kTrackingSignalSaturated * (settings.laser_power_percent / 100) *
           (settings.exposure_us / (kWhiteExposure * model.longest_exposure_us)) * settings.gain;
}

// It thins out with the square of the distance.
double Thinning(const MeasurementArea& area, double y_mm) {
    const double source_mm = area.near_mm - area.near_half_width_mm / area.Spread();
    const double portion = (area.near_mm + area.Depth() / 2 - source_mm) / (y_mm - source_mm);
    return portion * portion;
}

// The imager sees both sides at once there, and takes a depth between them.
void BlurJumps(const MeasurementArea& area, std::span<Sight> sights) {
    const double jump = JumpOf(area);
    for (size_t i = 1; i < sights.size(); ++i) {
        Sight& before = sights[i - 1];
        Sight& after = sights[i];
        if (!before.is_there || !after.is_there || before.at_jump) continue;
        const double height = after.y_mm - before.y_mm;
        if (std::abs(height) < jump) continue;
        before.at_jump = after.at_jump = true;
        before.y_mm += 0.3 * height;
        after.y_mm -= 0.3 * height;
    }
}

}  // namespace

double JumpOf(const MeasurementArea& area) {
    return 0.02 * area.Depth();
}

double AcrossOf(const ScannerModel& model, uint32_t column) {
    return (column + 0.5) / model.columns * 2 - 1;
}

void Look(const Scene& scene, const OpticalSettings& settings, const FieldOfView& view,
          std::span<Sight> sights) {
    const MeasurementArea& area = DetailsOf(scene.model).area;
    const double white = WhiteSignal(scene.model, settings);
    // By the cycles, so that the surface does not jump when the frame rate is changed.
    const double travel =
        static_cast<double>(scene.cycle) / scene.model.full_frame_rate_hz * kTravelPerSecond +
        scene.plane * kTravelPerPlane;
    for (size_t i = 0; i < sights.size(); ++i) {
        const Ray ray(area, AcrossOf(scene.model, view.first_column + static_cast<uint32_t>(i)));
        const Ray::Meeting meeting = ray.Meet(scene.surface, travel);
        const double incidence = ray.Incidence(meeting.slope);
        Sight& sight = sights[i];
        sight = {};
        sight.is_there = meeting.spot.is_there && incidence > 0 && meeting.y_mm >= area.near_mm &&
                         meeting.y_mm <= area.far_mm;
        if (!sight.is_there) continue;
        sight.y_mm = meeting.y_mm;
        sight.inclination_degrees = std::acos(std::min(incidence, 1.0)) * kDegrees;
        const double light = white * Thinning(area, meeting.y_mm);
        sight.mirrored = light * meeting.spot.gloss * std::pow(incidence, kGlossExponent);
        sight.signal = light * meeting.spot.reflectivity * incidence + sight.mirrored;
    }
    BlurJumps(area, sights);
}

}  // namespace hx::simulator
