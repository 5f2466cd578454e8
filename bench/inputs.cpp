#include "bench/inputs.h"

#include <random>
#include <string_view>

#include "bench/checksum.h"
#include "bench/records.h"
#include "bench/text_writer.h"

namespace hx::bench {
namespace {

constexpr std::string_view kWords[] = {
    "scan",   "surface", "glossy",   "dark",     "machined", "aluminium", "cast",    "painted",
    "carbon", "edge",    "filter",   "exposure", "laser",    "line",      "spacing", "use",
    "for",    "with",    "without",  "the",      "parts",    "bright",    "matt",    "primer",
    "paper",  "rubber",  "seal",     "after",    "cleaning", "spray",     "from",    "two",
    "sides",  "stripes", "standoff", "near",     "distance", "keep",      "angle",   "below",
};

// Random records. Every number has so few digits that it survives as text.
class RecordMaker {
public:
    // `text_percent`: how long the texts are.
    explicit RecordMaker(uint32_t text_percent) : m_text_percent(text_percent) {}

    Profile<std::string> MakeProfile() {
        Profile<std::string> profile;
        profile.name = Words(24);
        profile.description = Words(580);
        profile.material = Words(40);
        profile.surface_preparation = Words(440);
        profile.is_factory_default = Upto(1) != 0;
        profile.laser_intensity = Upto(100);
        profile.exposure_time = Decimal(2'000'000);
        profile.minimum_reflectivity = Decimal(100'000);
        profile.maximum_reflectivity = Decimal(100'000);
        profile.edge_suppression = Upto(1) != 0;
        profile.median_window = Upto(15);
        profile.point_spacing = Decimal(5'000);
        profile.line_rate = Upto(4'000);
        profile.standoff_offset = Offset();
        profile.remarks = Words(760);
        return profile;
    }

    Step MakeStep() {
        Step step;
        step.exposure = Decimal(2'000'000);
        step.gain = Upto(48);
        step.on = Upto(1) != 0;
        step.spacing = Decimal(5'000);
        step.standoff = Decimal(300'000);
        step.rate = Upto(400);
        step.min_range = Decimal(100'000);
        step.max_range = Decimal(300'000);
        step.offset = Offset();
        step.focus = Decimal(10'000);
        step.threshold = Decimal(1'000);
        step.intensity = Decimal(100'000);
        return step;
    }

private:
    uint32_t Upto(uint32_t largest) { return static_cast<uint32_t>(m_random() % (largest + 1)); }
    int32_t Offset() { return static_cast<int32_t>(Upto(500)) - 250; }
    double Decimal(uint32_t largest_thousandths) { return Upto(largest_thousandths) / 1000.0; }

    // Between half and one and a half times `length` characters, at full length.
    std::string Words(uint32_t length) {
        const size_t wanted = (length / 2 + Upto(length)) * m_text_percent / 100;
        std::string words;
        while (words.size() < wanted) {
            if (!words.empty()) words += ' ';
            // Text that must be written with a reference is there, but rare.
            words += Upto(999) == 0 ? "R&D" : kWords[Upto(std::size(kWords) - 1)];
        }
        return words;
    }

    const uint32_t m_text_percent;
    std::mt19937 m_random{20'240'117};
};

struct Size {
    const char* name;
    size_t profile_characters;  // that many at least; 0: none
    size_t step_characters;
    uint32_t text_percent;
};

Size SizeOf(InputKind kind) {
    switch (kind) {
        case InputKind::kSettings:
            return {"S", 1, 1, 80};
        case InputKind::kRoomy:
            return {"M", 1'000'000, 0, 100};
        case InputKind::kDense:
            return {"Md", 0, 1'000'000, 0};
        case InputKind::kLargeRoomy:
            return {"L", 100'000'000, 0, 100};
        case InputKind::kLargeDense:
            break;
    }
    return {"Ld", 0, 100'000'000, 0};
}

Input MakeInput(InputKind kind) {
    const Size size = SizeOf(kind);
    RecordMaker maker(size.text_percent);
    TextWriter records;
    Checksum checksum;
    RecordCounts counts;
    const auto add = [&](const auto& record) {
        ExchangeRecord(records, record);
        ExchangeRecord(checksum, record);
    };
    for (; records.Text().size() < size.profile_characters; ++counts.profiles) add(maker.MakeProfile());
    const size_t steps_begin = records.Text().size();
    for (; records.Text().size() - steps_begin < size.step_characters; ++counts.steps) add(maker.MakeStep());

    TextWriter head;
    RecordCounts::Exchange(head, counts);
    const std::string root = kRoot;
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<" + root + ">\n" + head.Text() +
                       records.Text() + "</" + root + ">\n";
    std::wstring wide(text.begin(), text.end());
    const size_t elements = 1 + head.Elements() + records.Elements();
    return {size.name, std::move(text), std::move(wide), elements, checksum.Sum()};
}

}  // namespace

const Input& Inputs::Get(InputKind kind) {
    const auto found = m_inputs.find(kind);
    return found != m_inputs.end() ? found->second : m_inputs.emplace(kind, MakeInput(kind)).first->second;
}

}  // namespace hx::bench
