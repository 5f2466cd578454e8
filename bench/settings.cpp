// Settings records: read from and written to the tagged form, beside plain structs of the same fields in the
// XML archives of other libraries, and beside the filers without a record.
#include <random>

#include "bench/archives.h"
#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/heap.h"
#include "bench/plain_filer.h"
#include "bench/plain_profiles.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx::bench {
namespace {

constexpr double kPeerTarget = 3.0;
constexpr double kFilerLimit = 1.3;

// Every number has so few digits that it survives as text.
template <class String>
PlainProfiles<String> MakeProfiles(uint32_t count, bool with_names) {
    std::mt19937 random(20);
    const auto upto = [&](uint32_t most) { return static_cast<uint32_t>(random()) % (most + 1); };
    const auto decimal = [&](uint32_t most_thousandths) { return upto(most_thousandths) / 1000.0; };
    PlainProfiles<String> made;
    for (uint32_t i = 0; i < count; ++i) {
        PlainProfile<String> profile;
        const std::string name = "Dark surface, profile " + std::to_string(i);
        if (with_names) profile.profile_name = String(name.begin(), name.end());
        profile.localisation_resource_id = upto(65'535);
        profile.laser_power = decimal(100'000);
        profile.exposure_time = decimal(400'000);
        profile.signal_threshold = static_cast<uint16_t>(upto(255));
        profile.max_inclination = decimal(90'000);
        profile.edge_filter_3d_enabled = upto(1) != 0;
        profile.edge_filter = decimal(10'000);
        profile.dlpc_enabled = upto(1) != 0;
        profile.rf_enabled = upto(1) != 0;
        profile.gain = static_cast<uint16_t>(upto(48));
        made.profiles.push_back(std::move(profile));
    }
    return made;
}

using Profiles = std::vector<MLaserProfileSettings>;
constexpr Tag kProfile = "Profile"_tag;

bool ReadRecords(std::wstring text, Profiles& profiles) {
    static const MLaserProfileSettings defaults;
    MInFilerTaggedXml in(std::move(text), kTaggedXmlRoot);
    MFilerTaggedPair filer(in);
    uint32_t count = 0;
    bool right = in.Read(kCount.wide, count, 0u);
    profiles = Profiles(count);
    for (MLaserProfileSettings& profile : profiles) {
        right &= profile.ReadTagged(filer, kProfile.wide, defaults);
    }
    return right;
}

std::wstring WriteRecords(const Profiles& profiles) {
    MOutFilerTaggedXml out(kTaggedXmlRoot);
    MFilerTaggedPair filer(out);
    bool right = out.Write(kCount.wide, static_cast<uint32_t>(profiles.size()));
    for (const MLaserProfileSettings& profile : profiles) {
        right &= profile.WriteTagged(filer, kProfile.wide);
    }
    return right ? out.TakeText() : std::wstring();
}

// The same values in every form that they have here.
template <class Records, template <class> class Plain>
struct Subject {
    std::string name;
    double count;  // of records
    Plain<std::string> narrow;
    Plain<std::wstring> wide;
    Plain<std::wstring> without_texts;
};

struct Tables {
    Table reading = PeerTable(
        "Settings records: read",
        "From the text to records in memory, the document's destruction included. The peers read structs of "
        "the same fields, nested in the same way, from what they wrote themselves; Boost once with narrow "
        "and "
        "once with wide strings.");
    Table writing = PeerTable("Settings records: write",
                              "From records in memory to the text of the document. cereal writes without "
                              "indentation; the peers write no types.");
    Table filer = {
        "Settings records beside the strict filer",
        "The same documents, read by the record and by the filer alone, which puts each value into a "
        "plain struct. Heap allocations are those of a whole document, its parsing included, by the "
        "number of records in it; those that go away when all texts are empty are due to texts.",
        {"Input", "Records take", "Filer takes", "Records / filer", "At most", "Met",
         "Allocations per record", "Due to texts"}};
};

template <class Records>
size_t AllocationsOfReading(std::wstring text) {
    Records records;
    const size_t before = Allocations();
    ReadRecords(std::move(text), records);
    return Allocations() - before;
}

template <class Records, template <class> class Plain>
void Compare(Benchmark& benchmark, Tables& tables, const Subject<Records, Plain>& subject) {
    using Narrow = Plain<std::string>;
    using Wide = Plain<std::wstring>;
    const std::wstring text = WritePlain(subject.wide);
    const std::string cereal_text = WriteCereal(subject.narrow);
    const std::string boost_text = WriteBoost(subject.narrow);
    const std::wstring boost_wide_text = WriteBoost(subject.wide);

    Records records;
    Wide wide;
    Narrow narrow;
    Expect(ReadRecords(text, records) && WriteRecords(records) == text, "HX", subject.name);
    Expect(ReadPlain(text, wide) && wide == subject.wide, "HX without a record", subject.name);
    ReadCereal(cereal_text, narrow);
    Expect(narrow == subject.narrow, "cereal", subject.name);
    narrow = {};
    ReadBoost(boost_text, narrow);
    Expect(narrow == subject.narrow, "Boost", subject.name);
    wide = {};
    ReadBoost(boost_wide_text, wide);
    Expect(wide == subject.wide, "Boost, wide", subject.name);

    // What is read or written is kept, to be destroyed by the next run: so the destruction lies inside the
    // time.
    std::wstring wide_in;
    std::string in;
    const std::vector<Contender> reading = {
        {"HX", [&] { wide_in = text; },
         [&] { Expect(ReadRecords(std::move(wide_in), records), "HX", subject.name); }},
        {"cereal", [&] { in = cereal_text; }, [&] { ReadCereal(std::move(in), narrow = {}); }, kPeerTarget},
        {"Boost", [&] { in = boost_text; }, [&] { ReadBoost(std::move(in), narrow = {}); }, kPeerTarget},
        {"Boost, wide", [&] { wide_in = boost_wide_text; }, [&] { ReadBoost(std::move(wide_in), wide = {}); },
         kPeerTarget},
    };
    AddContest(tables.reading, subject.name, reading, benchmark.HowMuch());

    const auto nothing = [] {};
    std::wstring wide_out;
    std::string out;
    AddContest(tables.writing, subject.name,
               {{"HX", nothing, [&] { wide_out = WriteRecords(records); }},
                {"cereal", nothing, [&] { out = WriteCereal(subject.narrow); }, kPeerTarget},
                {"Boost", nothing, [&] { out = WriteBoost(subject.narrow); }, kPeerTarget},
                {"Boost, wide", nothing, [&] { wide_out = WriteBoost(subject.wide); }, kPeerTarget}},
               benchmark.HowMuch());

    const std::vector<double> medians = Compete(
        {reading[0],
         {"filer", reading[0].prepare,
          [&] { Expect(ReadPlain(std::move(wide_in), wide = {}), "HX without a record", subject.name); }}},
        benchmark.HowMuch());
    const double ratio = medians[0] / medians[1];
    const size_t all = AllocationsOfReading<Records>(text);
    const size_t without_texts = AllocationsOfReading<Records>(WritePlain(subject.without_texts));
    tables.filer.Add({subject.name, FormatTime(medians[0]), FormatTime(medians[1]), FormatNumber(ratio, 2),
                      FormatNumber(kFilerLimit, 1), ratio <= kFilerLimit ? "yes" : "no",
                      FormatNumber(static_cast<double>(all) / subject.count, 2),
                      FormatNumber(static_cast<double>(all - without_texts) / subject.count, 2)});
}

}  // namespace

void CompareSettings(Benchmark& benchmark) {
    Tables tables;
    constexpr uint32_t kProfiles = 10'000;
    Compare(benchmark, tables,
            Subject<Profiles, PlainProfiles>{
                "10000 profiles", kProfiles, MakeProfiles<std::string>(kProfiles, true),
                MakeProfiles<std::wstring>(kProfiles, true), MakeProfiles<std::wstring>(kProfiles, false)});
    for (const Table* table : {&tables.reading, &tables.writing, &tables.filer}) {
        benchmark.report.Add(table->Markdown());
    }
}

}  // namespace hx::bench
