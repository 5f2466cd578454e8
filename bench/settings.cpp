// Settings records: read from and written to the tagged form, beside plain structs of the same fields in the
// XML archives of other libraries, and beside the filers without a record.
#include <optional>
#include <vector>

#include "bench/allocations.h"
#include "bench/archives.h"
#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/plain_device.h"
#include "bench/plain_filer.h"
#include "bench/plain_filler.h"
#include "bench/plain_profiles.h"
#include "settings/device/MDeviceMeasurementSettings.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx::bench {
namespace {

constexpr double kPeerTarget = 3.0;
constexpr double kFilerLimit = 1.3;

// One kind of document: as plain structs, as it is read and as it is written, and as records.
struct ProfilesSubject {
    static constexpr char kName[] = "10000 profiles";
    static constexpr uint32_t kRecords = 10'000;
    static constexpr Tag kElement = "Profile"_tag;
    template <class String>
    using Read = PlainProfiles<String>;
    template <class String>
    using Written = PlainProfiles<String>;
    using Records = std::vector<MLaserProfileSettings>;

    template <class Root>
    static Root Make() {
        Root made;
        made.profiles.resize(kRecords);
        return made;
    }

    static bool ReadRecords(std::wstring text, Records& records) {
        static const MLaserProfileSettings defaults;
        MInFilerTaggedXml in(std::move(text), kTaggedXmlRoot);
        MFilerTaggedPair filer(in);
        uint32_t count = 0;
        bool right = in.Read(kCount.wide, count, 0u);
        records = Records(count);
        for (MLaserProfileSettings& record : records) {
            right &= record.ReadTagged(filer, kElement.wide, defaults);
        }
        return right;
    }

    static std::wstring WriteRecords(const Records& records) {
        MOutFilerTaggedXml out(kTaggedXmlRoot);
        MFilerTaggedPair filer(out);
        bool right = out.Write(kCount.wide, static_cast<uint32_t>(records.size()));
        for (const MLaserProfileSettings& record : records) {
            right &= record.WriteTagged(filer, kElement.wide);
        }
        return right ? out.TakeText() : std::wstring();
    }
};

struct DeviceSubject {
    static constexpr char kName[] = "device settings";
    static constexpr uint32_t kRecords = 1;
    static constexpr Tag kElement = "DeviceMeasurementSettings"_tag;
    template <class String>
    using Read = PlainDeviceRead<String>;
    template <class String>
    using Written = PlainDeviceWritten<String>;
    using Records = std::optional<MDeviceMeasurementSettings>;

    template <class Root>
    static Root Make() {
        return {};
    }

    static bool ReadRecords(std::wstring text, Records& records) {
        static const MDeviceMeasurementSettings defaults;
        MInFilerTaggedXml in(std::move(text), kTaggedXmlRoot);
        MFilerTaggedPair filer(in);
        return records.emplace().ReadTagged(filer, kElement.wide, defaults);
    }

    static std::wstring WriteRecords(const Records& records) {
        MOutFilerTaggedXml out(kTaggedXmlRoot);
        MFilerTaggedPair filer(out);
        return records->WriteTagged(filer, kElement.wide) ? out.TakeText() : std::wstring();
    }
};

template <class Subject, class Root>
Root Make(bool with_texts = true) {
    Root made = Subject::template Make<Root>();
    PlainFiller filler(with_texts);
    Root::Exchange(filler, made);
    return made;
}

struct Tables {
    Table reading = PeerTable("Settings records: read",
                              "From the text to records in memory, the document's destruction included. "
                              "The peers read structs of "
                              "the same fields, nested in the same way, from what they wrote themselves; "
                              "Boost once with narrow "
                              "and "
                              "once with wide strings.");
    Table writing = PeerTable("Settings records: write",
                              "From records in memory to the text of the document. cereal writes without "
                              "indentation; the peers write no types.");
    Table filer = {
        "Settings records beside the strict filer",
        "The same documents, read by the record and by the filer alone, which puts each value into a "
        "plain struct. Heap allocations are those of a whole document by the number of records in it: "
        "all of "
        "them, "
        "those that go away when all texts are empty, and those of parsing alone.",
        {"Input", "Records take", "Filer takes", "Records / filer", "At most", "Met",
         "Allocations per record", "Due to texts", "Parsing"}};
};

template <class Action>
size_t AllocationsOf(Action&& action) {
    const size_t before = Allocations();
    action();
    return Allocations() - before;
}

template <class Subject>
size_t AllocationsOfReading(std::wstring text) {
    typename Subject::Records records;
    return AllocationsOf([&] { Subject::ReadRecords(std::move(text), records); });
}

template <class Subject>
void CompareReading(Benchmark& benchmark, Tables& tables) {
    using Wide = typename Subject::template Read<std::wstring>;
    using Narrow = typename Subject::template Read<std::string>;
    const Wide values = Make<Subject, Wide>();
    const Narrow narrow_values = Make<Subject, Narrow>();
    const std::wstring text = WritePlain(values);
    const std::string cereal_text = WriteCereal(narrow_values);
    const std::string boost_text = WriteBoost(narrow_values);
    const std::wstring boost_wide_text = WriteBoost(values);

    // What is read is kept, to be destroyed by the next run: so the destruction lies inside the time.
    typename Subject::Records records;
    Wide wide;
    Narrow narrow;
    std::wstring wide_in;
    std::string in;
    const Contender hx = {
        "HX", [&] { wide_in = text; },
        [&] { Expect(Subject::ReadRecords(std::move(wide_in), records), "HX", Subject::kName); }};
    const Contender filer = {
        "the filer alone", [&] { wide_in = text; },
        [&] { Expect(ReadPlain(std::move(wide_in), wide = {}), "HX, filer", Subject::kName); }};
    const Contender cereal = {"cereal", [&] { in = cereal_text; },
                              [&] { ReadCereal(std::move(in), narrow = {}); }, kPeerTarget};
    const Contender boost = {"Boost", [&] { in = boost_text; },
                             [&] { ReadBoost(std::move(in), narrow = {}); }, kPeerTarget};
    const Contender boost_wide = {"Boost, wide", [&] { wide_in = boost_wide_text; },
                                  [&] { ReadBoost(std::move(wide_in), wide = {}); }, kPeerTarget};
    for (const Contender* contender : {&hx, &filer, &cereal, &boost, &boost_wide}) {
        wide = {};
        narrow = {};
        contender->prepare();
        contender->run();
        const bool right =
            contender == &hx
                ? Subject::WriteRecords(records) ==
                      WritePlain(Make<Subject, typename Subject::template Written<std::wstring>>())
                : wide == values || narrow == narrow_values;
        Expect(right, contender->name.c_str(), Subject::kName);
    }
    AddContest(tables.reading, Subject::kName, {hx, cereal, boost, boost_wide}, benchmark.HowMuch());

    const std::vector<double> medians = Compete({hx, filer}, benchmark.HowMuch());
    const double ratio = medians[0] / medians[1];
    const size_t all = AllocationsOfReading<Subject>(text);
    const size_t without_texts =
        AllocationsOfReading<Subject>(WritePlain(Make<Subject, Wide>(/*with_texts*/ false)));
    std::wstring parsed = text;
    const size_t parsing = AllocationsOf([&] { MInFilerTaggedXml(std::move(parsed), kTaggedXmlRoot); });
    const auto per_record = [](size_t count) {
        return FormatNumber(static_cast<double>(count) / Subject::kRecords, 2);
    };
    tables.filer.Add({Subject::kName, FormatTime(medians[0]), FormatTime(medians[1]), FormatNumber(ratio, 2),
                      FormatNumber(kFilerLimit, 1), ratio <= kFilerLimit ? "yes" : "no", per_record(all),
                      per_record(all - without_texts), per_record(parsing)});
}

template <class Subject>
void CompareWriting(Benchmark& benchmark, Tables& tables) {
    using Wide = typename Subject::template Written<std::wstring>;
    const Wide values = Make<Subject, Wide>();
    const auto narrow_values = Make<Subject, typename Subject::template Written<std::string>>();
    const std::wstring text = WritePlain(values);
    typename Subject::Records records;
    Subject::ReadRecords(text, records);
    Expect(Subject::WriteRecords(records) == text, "HX", Subject::kName);

    const auto nothing = [] {};
    std::wstring wide_out;
    std::string out;
    AddContest(tables.writing, Subject::kName,
               {{"HX", nothing, [&] { wide_out = Subject::WriteRecords(records); }},
                {"cereal", nothing, [&] { out = WriteCereal(narrow_values); }, kPeerTarget},
                {"Boost", nothing, [&] { out = WriteBoost(narrow_values); }, kPeerTarget},
                {"Boost, wide", nothing, [&] { wide_out = WriteBoost(values); }, kPeerTarget}},
               benchmark.HowMuch());
}

template <class Subject>
void Compare(Benchmark& benchmark, Tables& tables) {
    CompareReading<Subject>(benchmark, tables);
    CompareWriting<Subject>(benchmark, tables);
}

}  // namespace

void CompareSettings(Benchmark& benchmark) {
    Tables tables;
    Compare<DeviceSubject>(benchmark, tables);
    Compare<ProfilesSubject>(benchmark, tables);
    for (const Table* table : {&tables.reading, &tables.writing, &tables.filer}) {
        benchmark.report.Add(table->Markdown());
    }
}

}  // namespace hx::bench
