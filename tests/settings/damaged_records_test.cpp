// Golden documents that end early, and with one bit turned over: nothing fails but the read, and a record
// that promises to stay as it was does so.
#include <gtest/gtest.h>

#include "apps/hxctl/record_json.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"
#include "settings/profile/MLaserProfileSettings.h"
#include "tests/settings/golden_documents.h"

namespace {

using hxctl::Json;

// What a record of the class lists after a read that failed, given what it listed before.
Json AfterFailure(const hx::RecordType& type, Json before, const ReadOutcome& outcome, const Json& after) {
    // All other classes read straight into the record.
    if (&type != &hx::MLaserProfileSettings::kType) return after;
    before["Version"] = after["Version"];
    if (after["Version"] == 1) before["RFEnabled"] = true;
    if (outcome.raised) before["ProfileName"] = after["ProfileName"];
    return before;
}

class DamagedRecords : public testing::Test {
protected:
    // Calls damage(bytes, place) for places all over each golden document, and reads the result.
    template <class Damage>
    void ReadAll(size_t places_per_byte, Damage&& damage) {
        size_t reads = 0;
        size_t failures = 0;
        for (const GoldenDocument& document : GoldenDocuments()) {
            SCOPED_TRACE(document.path.string());
            const std::string bytes = BytesOf(document.path);
            const hx::RecordType& type = *document.row->type;
            const std::wstring current = CurrentDocument(*document.row);
            const auto defaults = type.make();
            const auto before = type.make();
            ReadRecord(*document.row, current, before.get(), defaults.get());
            const Json listed = hxctl::FieldsOf(type, before.get());
            // All of a short document; of a long one as many, at a distance that meets all bits of a byte.
            constexpr size_t kPlaces = 400;
            const size_t places = bytes.size() * places_per_byte;
            const size_t step = places <= kPlaces ? 1 : places / kPlaces | 1;
            for (size_t place = 0; place < places; place += step) {
                SCOPED_TRACE(place);
                const auto text = hx::DecodeTextFile(damage(bytes, place));
                if (!text) continue;
                const auto record = type.make();
                ReadRecord(*document.row, current, record.get(), defaults.get());
                const ReadOutcome outcome = ReadRecord(*document.row, *text, record.get(), defaults.get());
                ++reads;
                WriteRecord(*document.row, record.get());
                if (outcome.read) continue;
                ++failures;
                const Json after = hxctl::FieldsOf(type, record.get());
                EXPECT_EQ(after, AfterFailure(type, listed, outcome, after));
            }
        }
        EXPECT_GT(reads, failures);
        EXPECT_GT(failures, 1000u);
    }
};

TEST_F(DamagedRecords, EveryPrefixIsReadOrRefused) {
    ReadAll(1, [](const std::string& bytes, size_t place) { return bytes.substr(0, place); });
}

TEST_F(DamagedRecords, EveryBitTurnedOverIsReadOrRefused) {
    ReadAll(8, [](std::string bytes, size_t place) {
        bytes[place / 8] = static_cast<char>(bytes[place / 8] ^ 1 << place % 8);
        return bytes;
    });
}

}  // namespace
