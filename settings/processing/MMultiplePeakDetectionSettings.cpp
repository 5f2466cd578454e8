#include "settings/processing/MMultiplePeakDetectionSettings.h"

#include <algorithm>

#include "core/records/FieldsOf.h"
#include "core/records/ListType.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MMultiplePeakDetectionSettings"};
const StreamedClasses kClasses(kNames);

using R = MMultiplePeakDetectionSettings;
using F = FieldsOf<R>;

constexpr std::wstring_view kSizeChild = L"Size";

// The name of the list and the number of the entry, from 0.
class EntryName {
public:
    explicit EntryName(std::wstring_view list) : m_digits(list.copy(m_text, kMaxListName)) {}

    std::wstring_view Of(size_t index) {
        const CNumberText number(uint64_t{index});
        const std::wstring_view digits = number;
        return {m_text, m_digits + digits.copy(m_text + m_digits, kMaxDigits)};
    }

private:
    static constexpr size_t kMaxListName = 40;
    static constexpr size_t kMaxDigits = 20;
    wchar_t m_text[kMaxListName + kMaxDigits];
    size_t m_digits;
};

// The size is what a document claims: nothing is made before it is found.
bool ReadEntries(std::vector<double>& entries, std::wstring_view list, int32_t size,
                 MFilerTaggedPair& filer) {
    EntryName name(list);
    const size_t count = static_cast<size_t>(std::max(size, 0));
    for (size_t index = 0; index < count; ++index) {
        double entry = 0;
        const bool answer = filer.Read(name.Of(index), entry, 0.0);
        if (!answer || !filer.Found()) {
            entries.resize(index);
            return answer;
        }
        if (index < entries.size()) {
            entries[index] = entry;
        } else {
            entries.push_back(entry);
        }
    }
    entries.resize(count);
    return true;
}

bool ReadWeights(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
    std::vector<double>& weights = static_cast<R*>(record)->Weight2DCog;
    int32_t size = 0;
    bool has_size = false;
    const bool read = InGroup(filer, field.child, [&] {
        const bool answer = filer.Read(kSizeChild, size, 0);
        has_size = answer && filer.Found();
        return has_size ? ReadEntries(weights, field.child, size, filer) : answer;
    });
    if (!has_size) weights = static_cast<const R*>(fallback)->Weight2DCog;
    return read;
}

bool WriteWeights(const Field& field, const void* record, MFilerTaggedPair& filer) {
    const std::vector<double>& weights = static_cast<const R*>(record)->Weight2DCog;
    return InGroup(filer, field.child, [&] {
        if (!filer.Write(kSizeChild, static_cast<int32_t>(weights.size()))) return false;
        EntryName name(field.child);
        for (size_t index = 0; index < weights.size(); ++index) {
            if (!filer.Write(name.Of(index), weights[index])) return false;
        }
        return true;
    });
}

constexpr FieldOps kWeightsOps{
    TaggedType<double>::kWord, 0,
    [](void* record) -> FieldRef {
        return ListRef{&static_cast<R*>(record)->Weight2DCog, &VectorType<double>::kType};
    },
    &ReadWeights, &WriteWeights};

constexpr Field kFields[] = {
    F::Value<&R::KernelWidth>(L"KernelWidth", 5, "pixels"),
    F::Value<&R::SlopeThreshold>(L"SlopeThreshold", 1.0),
    F::Value<&R::MinPeakHeight>(L"MinPeakHeight", 20, "intensity"),
    F::Value<&R::BlackLevelOffset>(L"BlackLevelOffset", 0.0, "intensity"),
    F::Value<&R::WindowSizeColumns>(L"WindowSizeColumns", 5, "columns"),
    {L"Weight2DCog", &kWeightsOps, {}, "\"Size\" (int), then as many, named by their number from 0"},
    F::Value<&R::MinPeakOverlapRatio2DCoG>(L"MinPeakOverlapRatio2DCoG", 0.5, "0 to 1"),
    F::Value<&R::CoGOrder>(L"CoGOrder", 1),
    F::Value<&R::CompressIntensities>(L"CompressIntensities", false),
};

}  // namespace

constinit const RecordType MMultiplePeakDetectionSettings::kType =
    RecordTypeOf<MMultiplePeakDetectionSettings>(
        L"MMultiplePeakDetectionSettings", {RecordVersion::kInt, 1}, kFields,
        "How several peaks in one column of the image are told apart.");

MMultiplePeakDetectionSettings::MMultiplePeakDetectionSettings() {
    SetDefaults(*this);
}

}  // namespace hx
