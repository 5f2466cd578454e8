#include "settings/processing/MColumnInterpolatorSettings.h"

#include <array>
#include <utility>

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MColumnInterpolatorSettings", "MColumnInterpolatorMaxIntensitySettings",
                                  "MColumnInterpolatorWeighedAverageSettings"};
const StreamedClasses kClasses(kNames);

using Column = MColumnInterpolatorSettings;
using MaxIntensity = MColumnInterpolatorMaxIntensitySettings;
using WeighedAverage = MColumnInterpolatorWeighedAverageSettings;

// The threshold was a byte once; no version tells when that was.
template <class R>
struct ThresholdOps {
    static FieldRef At(void* record) { return &static_cast<R*>(record)->MinThreshold; }
    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        uint16_t& threshold = static_cast<R*>(record)->MinThreshold;
        const uint16_t otherwise = static_cast<const R*>(fallback)->MinThreshold;
        if (filer.Read(field.child, threshold, otherwise) && filer.Found()) return true;
        uint8_t narrow = 0;
        const bool read = filer.Read<uint8_t>(field.child, narrow, 0);
        if (read && filer.Found()) threshold = narrow;
        return read;
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        return filer.Write(field.child, static_cast<const R*>(record)->MinThreshold);
    }
    static constexpr FieldOps kOps{TaggedType<uint16_t>::kWord, 16, &At, &Read, &Write};
};

// A derived class writes the rows of its base in front of its own.
template <class R>
constexpr std::array kColumnRows = {
    FieldsOf<R>::template Value<&R::Columns>(L"Columns", 1),
    FieldsOf<R>::template Value<&R::BlackLevelOffset>(L"BlackLevelOffset", 0.0, "intensity"),
    FieldsOf<R>::template Value<&R::UseArea>(L"UseArea", false),
    FieldsOf<R>::template Value<&R::BackgroundRemovalType>(L"BackgroundRemovalType", 0),
};
template <class R>
constexpr std::array kMaxIntensityRows = {
    Field{L"MinThreshold", &ThresholdOps<R>::kOps, 20, "intensity; a \"byte\" in old documents"},
    FieldsOf<R>::template Value<&R::TruePeak>(L"TruePeak", true),
    FieldsOf<R>::template Value<&R::DoublePeakFilter>(L"DoublePeakFilter", 0.5),
    FieldsOf<R>::template Value<&R::DoublePeakDistance>(L"DoublePeakDistance", 10, "pixels"),
    // Not in every release's documents.
    FieldsOf<R>::template Value<&R::DynamicBlackLevel>(L"DynamicBlackLevel", 0.0, "intensity").Optional(),
    FieldsOf<R>::template Value<&R::MinRange>(L"MinRange", 0, "pixels"),
};

template <class R, size_t... column, size_t... own>
constexpr std::array<Field, sizeof...(column) + sizeof...(own)> Join(std::index_sequence<column...>,
                                                                     std::index_sequence<own...>) {
    return {kColumnRows<R>[column]..., kMaxIntensityRows<R>[own]...};
}
template <class R>
constexpr auto kAllRows = Join<R>(std::make_index_sequence<kColumnRows<R>.size()>(),
                                  std::make_index_sequence<kMaxIntensityRows<R>.size()>());

}  // namespace

constinit const RecordType MColumnInterpolatorSettings::kType = RecordTypeOf<Column>(
    L"MColumnInterpolatorSettings", {RecordVersion::kInt, 1}, kColumnRows<Column>,
    "How the laser line is found in each column of the image; what all ways have in common.");

constinit const RecordType MColumnInterpolatorMaxIntensitySettings::kType = RecordTypeOf<MaxIntensity>(
    L"MColumnInterpolatorMaxIntensitySettings", {RecordVersion::kInt, 1}, kAllRows<MaxIntensity>,
    "Finds the laser line at the greatest intensity of each column.");

constinit const RecordType MColumnInterpolatorWeighedAverageSettings::kType = RecordTypeOf<WeighedAverage>(
    L"MColumnInterpolatorWeighedAverageSettings", {RecordVersion::kInt, 1}, kAllRows<WeighedAverage>,
    "Finds the laser line at the mean of each column, weighed by intensity.");

MColumnInterpolatorSettings::MColumnInterpolatorSettings() {
    SetDefaults(*this);
}

std::unique_ptr<MColumnInterpolatorSettings> MColumnInterpolatorSettings::Clone() const {
    return std::make_unique<MColumnInterpolatorSettings>(*this);
}

RecordRef MColumnInterpolatorSettings::Ref() {
    return {this, &kType};
}

MColumnInterpolatorMaxIntensitySettings::MColumnInterpolatorMaxIntensitySettings() {
    SetDefaults(*this);
}

// Its table has no rows of its own; the base gave them their defaults.
MColumnInterpolatorWeighedAverageSettings::MColumnInterpolatorWeighedAverageSettings() = default;

}  // namespace hx
