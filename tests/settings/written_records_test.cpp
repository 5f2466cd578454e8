// What a record of any class holds is what is read back from the text that it writes.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cstdlib>

#include "apps/hxctl/record_json.h"
#include "platform/system/utf8.h"
#include "tests/settings/arbitrary_record.h"
#include "tests/settings/golden_documents.h"

namespace {

// A record that is only ever read.
constexpr size_t kNeverWritten = 1;

#ifdef __SANITIZE_ADDRESS__
// Ten times slower then.
[[maybe_unused]] const int kRuns = setenv("RC_PARAMS", "max_success=40", 0);
#endif

TEST(WrittenRecords, AreReadBackWhateverTheirValues) {
    size_t took_part = 0;
    for (const hx::InventoryRow& row : hx::RecordInventory()) {
        const hx::RecordType& type = *row.type;
        const auto defaults = type.make();
        const auto make = [&] {
            // With all that a document can bring: an empty collection cannot be written, and of the hardware
            // settings those that were read are.
            auto record = type.make();
            RC_ASSERT(ReadRecord(row, CurrentDocument(row), record.get(), defaults.get()).read);
            return record;
        };
        if (WriteRecord(row, make().get()).empty()) continue;
        ++took_part;
        EXPECT_TRUE(rc::check(hx::ToUtf8(type.name), [&] {
            const auto record = make();
            FillArbitrarily(type, record.get());
            const std::wstring text = WriteRecord(row, record.get());
            RC_ASSERT(!text.empty());
            const auto read = type.make();
            RC_ASSERT(ReadRecord(row, text, read.get(), defaults.get()).read);
            RoundAsWritten(type, record.get());
            const nlohmann::json difference =
                nlohmann::json::diff(hxctl::FieldsOf(type, record.get()), hxctl::FieldsOf(type, read.get()));
            RC_ASSERT(difference.dump() == "[]");
            RC_ASSERT(WriteRecord(row, read.get()) == WriteRecord(row, record.get()));
        }));
    }
    EXPECT_EQ(took_part, hx::RecordInventory().size() - kNeverWritten);
}

}  // namespace
