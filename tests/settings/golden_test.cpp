// Documents of every class and version, with all that is told of them and written from them.
#include <gtest/gtest.h>

#include <set>

#include <nlohmann/json.hpp>
#include "apps/hxctl/command.h"
#include "platform/system/utf8.h"
#include "tests/settings/golden_documents.h"

namespace {

using nlohmann::json;

TEST(Golden, EveryDocumentIsReadAndWrittenAsItAlwaysWas) {
    for (const GoldenDocument& document : GoldenDocuments()) {
        SCOPED_TRACE(document.path.string());
        hxctl::InspectRequest request;
        request.file = document.path.string();
        request.record = hx::ToUtf8(document.row->type->name);
        request.defaults = document.defaults.string();
        request.rewrite = true;
        auto told = json::parse(hxctl::RunInspect(request, true).output, nullptr, false);
        ASSERT_TRUE(told.is_object());
        const auto rewritten = document.Beside("rewritten.xml");
        EXPECT_EQ(told["document"].get<std::string>(), exists(rewritten) ? BytesOf(rewritten) : "");
        told.erase("document");
        const auto expected = json::parse(BytesOf(document.Beside("json")), nullptr, false);
        EXPECT_EQ(told, expected) << "the differences: " << json::diff(expected, told).dump(2);
    }
}

TEST(Golden, EveryClassHasItsDocuments) {
    std::set<const hx::InventoryRow*> with_documents;
    for (const GoldenDocument& document : GoldenDocuments()) with_documents.insert(document.row);
    for (const hx::InventoryRow& row : hx::RecordInventory()) {
        EXPECT_TRUE(with_documents.contains(&row)) << hx::ToUtf8(row.type->name);
        EXPECT_NE(CurrentDocument(row), L"") << hx::ToUtf8(row.type->name);
    }
}

}  // namespace
