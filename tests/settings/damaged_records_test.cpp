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

// All other classes read straight into the record.
bool Promises(const hx::RecordType& type) {
    return &type == &hx::MLaserProfileSettings::kType;
}

// What such a record lists after a read that failed, given what it listed before.
Json AsItWas(Json before, const ReadOutcome& outcome, const Json& after) {
    before["Version"] = after["Version"];
    if (after["Version"] == 1) before["RFEnabled"] = true;
    if (outcome.raised) before["ProfileName"] = after["ProfileName"];
    return before;
}

class DamagedRecords : public testing::Test {
protected:
    // Calls damage(bytes, place) for places all over each golden document, and reads the result: into a
    // record that has seen what was damaged elsewhere, or, to see what becomes of it, into one of the class's
    // own document.
    template <class Damage>
    void ReadAll(size_t places_per_byte, Damage&& damage) {
        for (const GoldenDocument& document : GoldenDocuments()) {
            SCOPED_TRACE(document.path.string());
            const hx::InventoryRow& row = *document.row;
            const hx::RecordType& type = *row.type;
            const std::wstring current = CurrentDocument(row);
            const auto defaults = type.make();
            auto record = type.make();
            const std::string bytes = BytesOf(document.path);
            // All of a short document, fewer of a long one, others in each; an odd distance meets all bits of
            // a byte.
            constexpr size_t kBytesInAll = 250'000;
            const size_t places = bytes.size() * places_per_byte;
            const size_t step = places * bytes.size() / kBytesInAll | 1;
            for (size_t place = m_documents++ % step; place < places; place += step) {
                SCOPED_TRACE(place);
                const auto text = hx::DecodeTextFile(damage(bytes, place));
                if (!text) continue;
                Json before;
                if (Promises(type)) {
                    record = type.make();
                    ReadRecord(row, current, record.get(), defaults.get());
                    before = hxctl::FieldsOf(type, record.get());
                }
                const ReadOutcome outcome = ReadRecord(row, *text, record.get(), defaults.get());
                (outcome.read ? m_read : m_refused) += 1;
                WriteRecord(row, record.get());
                if (outcome.read || !Promises(type)) continue;
                const Json after = hxctl::FieldsOf(type, record.get());
                EXPECT_EQ(after, AsItWas(before, outcome, after));
            }
        }
        EXPECT_GT(m_read, 0u);
        EXPECT_GT(m_refused, 1000u);
    }

private:
    size_t m_documents = 0;
    size_t m_read = 0;
    size_t m_refused = 0;
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
