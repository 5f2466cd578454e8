// What the hardware settings of all scanner families have in common: validity flags, the reference copy, and
// writing in full or as changes only.
#include <gtest/gtest.h>

#include <algorithm>
#include <type_traits>

#include "core/records/ReferenceCopy.h"
#include "settings/measurement/MHXMeasurementSettings.h"
#include "settings/measurement/MHXMeasurementSettingsConverter.h"
#include "settings/measurement/ZRDMeasurementSettings.h"
#include "settings/measurement/ZRDMeasurementSettingsConverter.h"
#include "tests/settings/raised.h"
#include "tests/settings/record_text.h"

namespace {

using hx::MHXMeasurementSettings;
using hx::ZRDMeasurementSettings;

// One value of each family, the one with flag 40.
struct Hx {
    using Record = MHXMeasurementSettings;
    using Converter = hx::MHXMeasurementSettingsConverter;
    static constexpr auto kValue = &Record::ExposureRange_us;
    static constexpr std::wstring_view kChild = L"ExposureRange_us";
    static constexpr std::wstring_view kError = L"MHXMeasurementSettings.IsValid:OutofRange";
    static constexpr size_t kValues = 1;
};
struct Zrd {
    using Record = ZRDMeasurementSettings;
    using Converter = hx::ZRDMeasurementSettingsConverter;
    static constexpr auto kValue = &Record::FPGA_CounterPrescaller;
    static constexpr std::wstring_view kChild = L"FPGA_CounterPrescaller";
    static constexpr std::wstring_view kError = L"ZRDMeasurementSettings.IsValid:OutOfRange";
    static constexpr size_t kValues = 40;
};

template <class Family>
class HardwareSettings : public testing::Test {
protected:
    using Record = typename Family::Record;

    static std::wstring Value(uint32_t value) { return Child(Family::kChild, L"uint", value); }
    static std::wstring Current() { return Version(Record::kType.version.current); }
    static Record With(uint32_t value) {
        Record record;
        record.*Family::kValue = value;
        return record;
    }
    static bool Writes(const Record& record, uint32_t value) {
        return Written(record).find(Value(value)) != std::wstring::npos;
    }
};

using Families = testing::Types<Hx, Zrd>;
TYPED_TEST_SUITE(HardwareSettings, Families);

TYPED_TEST(HardwareSettings, FlagsTellWhatTheDocumentHas) {
    constexpr uint32_t before = 1, in_defaults = 2, in_document = 3;
    const int64_t newest = TypeParam::Record::kType.version.current;
    struct Row {
        const char* what;
        std::wstring children;
        bool valid;
        uint32_t value;
        bool accepted;
    };
    const Row rows[] = {
        {"there", TestFixture::Current() + TestFixture::Value(in_document), true, in_document, true},
        {"not there", TestFixture::Current(), false, in_defaults, true},
        {"newer version", Version(newest + 1) + TestFixture::Value(in_document), false, before, false},
        {"no version", TestFixture::Value(in_document), false, before, false},
        {"version of another type", Version(1, L"uint") + TestFixture::Value(in_document), false, before,
         false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        auto record = TestFixture::With(before);
        EXPECT_TRUE(record.IsValid(0) && record.IsValid(8) && record.IsValid(40)) << "a new record";
        const bool read = ReadFrom(row.children, record, TestFixture::With(in_defaults));
        EXPECT_EQ(read, row.valid && TypeParam::kValues == 1) << "other families miss their other values";
        EXPECT_EQ(record.IsValid(40), row.valid);
        EXPECT_FALSE(record.IsValid(0) || record.IsValid(8));
        EXPECT_EQ(record.*TypeParam::kValue, row.value);
        EXPECT_EQ(record.VersionAccepted(), row.accepted);
        EXPECT_TRUE(TestFixture::Writes(record, row.valid ? in_document : in_defaults))
            << "the reference copy is replaced in any case";
    }
    auto record = TestFixture::With(before);
    EXPECT_TRUE(ReadFrom(Written(record), record, record));
    hx::MInFilerTaggedXml reader(L"<R/>", L"R");
    hx::MFilerTaggedPair filer(reader);
    EXPECT_FALSE(record.ReadTagged(filer, L"E", TestFixture::With(in_defaults)));
    EXPECT_TRUE(record.IsValid(40) && record.*TypeParam::kValue == before && !record.VersionAccepted())
        << "without the element";
    EXPECT_EQ(RaisedBy([&] { record.IsValid(41); }), TypeParam::kError);
    EXPECT_EQ(RaisedBy([&] { record.IsValid(~0u); }), TypeParam::kError);
}

TYPED_TEST(HardwareSettings, AreWrittenInFullOrAsChanges) {
    constexpr uint32_t none = 0, in_defaults = 7, own = 9;
    struct Row {
        const char* what;
        bool has_reference;
        bool valid;
        uint32_t value;
        uint32_t full;  // what is written in full
        uint32_t changes;
    };
    const Row rows[] = {
        {"changed", true, true, own, own, own},
        {"unchanged", true, true, in_defaults, in_defaults, none},
        {"not valid", true, false, own, in_defaults, none},
        {"nothing to compare with", false, true, own, own, own},
        {"not valid, nothing instead", false, false, own, own, none},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        typename TypeParam::Record record;
        if (row.has_reference) ReadFrom(TestFixture::Current(), record, TestFixture::With(in_defaults));
        record.SetAllValid(row.valid);
        record.*TypeParam::kValue = row.value;
        EXPECT_TRUE(TestFixture::Writes(record, row.full));
        std::wstring expected = TestFixture::Current();
        if (row.changes != none) {
            // Without a reference copy the other values count as changed, too.
            expected = row.has_reference ? expected + TestFixture::Value(row.changes) : Written(record);
        }
        record.WriteChangesOnly = true;
        EXPECT_EQ(Written(record), expected);
    }
    hx::MFilerTaggedPair nowhere(nullptr, nullptr);
    EXPECT_FALSE(typename TypeParam::Record().WriteTagged(nowhere, L"E"));
}

TYPED_TEST(HardwareSettings, CopiesHaveReferencesOfTheirOwn) {
    auto record = TestFixture::With(1);
    record.WriteChangesOnly = true;
    ReadFrom(TestFixture::Current(), record, TestFixture::With(7));
    auto copy = record;
    EXPECT_TRUE(copy.WriteChangesOnly && !copy.IsValid(40));
    record.WriteChangesOnly = copy.WriteChangesOnly = false;
    ReadFrom(TestFixture::Current(), copy, TestFixture::With(8));
    EXPECT_TRUE(TestFixture::Writes(record, 7) && TestFixture::Writes(copy, 8));
    copy = record;
    EXPECT_TRUE(TestFixture::Writes(copy, 7));
    copy.*TypeParam::kValue = 9;
    copy.DropReference();
    EXPECT_TRUE(TestFixture::Writes(copy, 9)) << "nothing stands in for what is not valid";
}

TYPED_TEST(HardwareSettings, TheConverterGivesEveryValueItsDefault) {
    typename TypeParam::Record record;
    size_t values = 0;
    for (const hx::Field& field : record.kType.fields) {
        if (field.ops->at == nullptr) continue;
        ++values;
        const auto change = [](auto at) {
            if constexpr (std::is_same_v<decltype(at), bool*>) {
                *at = !*at;
            } else if constexpr (std::is_pointer_v<decltype(at)>) {
                if constexpr (std::is_integral_v<std::remove_pointer_t<decltype(at)>>) ++*at;
            }
        };
        std::visit(change, field.ops->at(&record));
    }
    EXPECT_EQ(values, TypeParam::kValues);
    ReadFrom(L"", record, record);
    EXPECT_FALSE(record.IsValid(40));
    TypeParam::Converter::GetDefaultMeasurementSettings(record);
    for (uint32_t flag = 0; flag <= 40; ++flag) EXPECT_TRUE(record.IsValid(flag)) << flag;
    EXPECT_EQ(Written(record), Written(typename TypeParam::Record()));
    // The reference copy is still the changed record.
    record.WriteChangesOnly = true;
    const std::wstring changes = Written(record);
    EXPECT_EQ(std::count(changes.begin(), changes.end(), L'\n'), static_cast<int>(TypeParam::kValues) + 1);
}

// Counts those that exist.
struct Counted {
    Counted() { ++alive; }
    Counted(const Counted& other) : reference(other.reference) { ++alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --alive; }
    void DropReference() { reference.Drop(); }

    hx::ReferenceCopy<Counted> reference;
    inline static int alive = 0;
};

TEST(ReferenceCopy, DoesNotGrowWithEveryRead) {
    Counted one;
    Counted other;
    for (int i = 0; i < 3; ++i) {
        one.reference.Set(one);
        other.reference.Set(one);
        one.reference.Set(other);
        EXPECT_EQ(Counted::alive, 4);
    }
}

}  // namespace
