#include "simulator/scanner/SignalSearch.h"

#include <algorithm>
#include <cmath>

#include "simulator/scanner/LaserPower.h"

namespace hx::simulator {
namespace {

constexpr double kSaturatedPenalty = 3;
constexpr int kScanSteps = 24;
constexpr int kGoldenSteps = 14;
constexpr double kGolden = 0.6180339887498949;
constexpr double kShortestExposure = 0.002;  // of the longest

double ScoreOf(const Picture& picture) {
    constexpr double kBest = kBestSignal * kTrackingSignalSaturated;
    double sum = 0;
    for (const TrackingPoint& point : picture.points) {
        sum += point.signal >= kTrackingSignalSaturated ? -kSaturatedPenalty
                                                        : 1 - std::abs(point.signal - kBest) / kBest;
    }
    return sum / picture.column_count;
}

// The value between `low` and `high` with the best score: a coarse scan in equal ratios, since light is a
// matter of ratios, then a golden section around its best.
template <class Score>
std::optional<double> Search(double low, double high, Score score) {
    std::optional<double> best_score;
    int best_step = 0;
    const double ratio = std::log(high / low) / kScanSteps;
    const auto value_at = [&](double step) { return std::clamp(low * std::exp(ratio * step), low, high); };
    for (int step = 0; step <= kScanSteps; ++step) {
        const std::optional<double> found = score(value_at(step));
        if (!found || (best_score && *found <= *best_score)) continue;
        best_score = found;
        best_step = step;
    }
    if (!best_score) return {};
    double left = std::max(best_step - 1, 0);
    double right = std::min(best_step + 1, kScanSteps);
    double best = best_step;
    const auto try_step = [&](double step) {
        const std::optional<double> found = score(value_at(step));
        if (found && *found > *best_score) {
            best_score = found;
            best = step;
        }
        return found;
    };
    double inner_left = right - kGolden * (right - left);
    double inner_right = left + kGolden * (right - left);
    std::optional<double> at_left = try_step(inner_left);
    std::optional<double> at_right = try_step(inner_right);
    for (int i = 0; i < kGoldenSteps; ++i) {
        // No picture at all is less than any.
        if (at_left < at_right) {
            left = inner_left;
            inner_left = inner_right;
            at_left = at_right;
            inner_right = left + kGolden * (right - left);
            at_right = try_step(inner_right);
        } else {
            right = inner_right;
            inner_right = inner_left;
            at_right = at_left;
            inner_left = right - kGolden * (right - left);
            at_left = try_step(inner_left);
        }
    }
    return value_at(best);
}

}  // namespace

std::optional<double> SignalScore(PictureMaker& maker, const ScannerModel& model, const Surface& surface,
                                  uint64_t cycle, const OpticalSettings& settings) {
    double sum = 0;
    bool is_seen = false;
    for (uint32_t plane = 0; plane < model.plane_count; ++plane) {
        const Picture& picture = maker.Make({model, surface, cycle, plane}, settings);
        is_seen = is_seen || !picture.points.empty();
        sum += ScoreOf(picture);
    }
    if (!is_seen) return {};
    return sum / model.plane_count;
}

std::optional<double> BestExposure(const ScannerModel& model, const Surface& surface, uint64_t cycle,
                                   const OpticalSettings& settings) {
    PictureMaker maker(model);
    OpticalSettings tried = settings;
    const double longest = model.longest_exposure_us;
    const std::optional<double> best = Search(kShortestExposure * longest, longest, [&](double exposure_us) {
        tried.exposure_us = exposure_us;
        return SignalScore(maker, model, surface, cycle, tried);
    });
    if (!best) return {};
    return std::round(*best);
}

std::optional<double> BestLaserPower(const ScannerModel& model, const Surface& surface, uint64_t cycle,
                                     const OpticalSettings& settings) {
    PictureMaker maker(model);
    OpticalSettings tried = settings;
    return Search(kLowestLaserPower_percent, kHighestLaserPower_percent, [&](double percent) {
        tried.laser_power_percent = percent;
        return SignalScore(maker, model, surface, cycle, tried);
    });
}

}  // namespace hx::simulator
