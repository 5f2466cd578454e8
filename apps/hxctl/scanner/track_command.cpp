// hxctl scanner track: a tracking session as a page runs it, and what was seen.
#include <cmath>

#include "apps/hxctl/scanner/failed_call.h"
#include "apps/hxctl/scanner/tracking_session.h"
#include "apps/hxctl/scanner/tracking_statistics.h"
#include "platform/system/sleep.h"

namespace hxctl {
namespace {

constexpr double kLongestSeconds = 24.0 * 3600.0;

void Track(double seconds) {
    hx::SleepMilliseconds(static_cast<uint32_t>(std::lround(seconds * 1000.0)));
}

// What the scanner finds at the preset's values, the exposure first.
void Detect(TrackingSession& session, IDynamicSettingsPreset& preset, Json& answer) {
    const hx::ComPtr<ICalibrationHandle> handle(&session.Handle());
    const IID& iid = hx::uuid_of<IDynamicSettingsPreset>();
    int16_t exposure_us = 0;
    CheckCall("DetectExposureTime", handle->DetectExposureTime(&exposure_us), handle);
    CheckCall("SetExposureTime", preset.SetExposureTime(exposure_us), preset, iid);
    CheckCall("ActivateDynamicSettings", handle->ActivateDynamicSettings(&preset), handle);
    double percent = 0.0;
    CheckCall("DetectLaserPower", handle->DetectLaserPower(&percent), handle);
    CheckCall("SetLaserPower", preset.SetLaserPower(percent), preset, iid);
    CheckCall("ActivateDynamicSettings", handle->ActivateDynamicSettings(&preset), handle);
    answer["detected"] = {{"exposure_us", exposure_us}, {"laser_power_percent", percent}};
}

double Portion(uint64_t part, uint64_t whole) {
    return whole == 0 ? 0.0 : static_cast<double>(part) / static_cast<double>(whole);
}

double Rounded(double value) {
    return std::round(value * 10.0) / 10.0;
}

Json StatisticsOf(const TrackingTotals& totals) {
    const double rate_hz = totals.time_us == 0 ? 0.0
                                               : static_cast<double>(totals.intervals) * 1e6 /
                                                     static_cast<double>(totals.time_us);
    return {{"cycles", totals.cycles},
            {"lost_cycles", totals.lost},
            {"frame_rate_hz", Rounded(rate_hz)},
            {"points_per_cycle", Rounded(Portion(totals.points, totals.cycles))},
            {"fewest_points", totals.fewest_points},
            {"most_points", totals.most_points},
            {"columns_seen_percent", Rounded(100.0 * Portion(totals.points, totals.columns))},
            {"saturated_percent", Rounded(100.0 * Portion(totals.saturated, totals.points))},
            {"mean_signal_percent",
             Rounded(100.0 * Portion(totals.signal, totals.points) / kTrackingSignalSaturated)}};
}

std::string Lines(const Json& values) {
    std::string text;
    for (const auto& [name, value] : values.items()) text += name + ": " + value.dump() + "\n";
    return text;
}

}  // namespace

Outcome RunScannerTrack(const TrackRequest& request, bool json) {
    if (!(request.seconds > 0.0 && request.seconds <= kLongestSeconds)) {
        return {kUsage, {}, "the time is a number of seconds above 0, up to a day"};
    }
    return AtDesk(request.scanner, json, [&](Desk& desk, DeskAnswer& answer) {
        desk.Connect();
        const auto preset = PresetOf(desk, request.values);
        const auto statistics = hx::Make<TrackingStatistics>();
        TrackingSession session(desk, *preset, *statistics);
        if (request.detect) Detect(session, *preset, answer.json);
        Track(request.drop ? request.seconds / 2 : request.seconds);
        if (request.drop) {
            desk.Disconnect();
            session.End();
            desk.Connect();
            session = TrackingSession(desk, *preset, *statistics);
            Track(request.seconds / 2);
        }
        session.End();
        desk.Disconnect();
        answer.json["statistics"] = StatisticsOf(statistics->Totals());
        if (request.detect) answer.text = Lines(answer.json["detected"]);
        answer.text += Lines(answer.json["statistics"]);
    });
}

}  // namespace hxctl
