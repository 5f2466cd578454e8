#include "tests/settings/golden_documents.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "apps/hxctl/record_reading.h"
#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace {

constexpr char kRewritten[] = ".rewritten.xml";
constexpr char kDefaults[] = "defaults.xml";

}  // namespace

std::filesystem::path GoldenFolder() {
    return std::filesystem::path(HX_SOURCE_DIR) / "tests" / "golden";
}

std::vector<GoldenDocument> GoldenDocuments() {
    std::vector<GoldenDocument> documents;
    for (const auto& folder : std::filesystem::directory_iterator(GoldenFolder())) {
        const auto class_name = folder.path().filename().wstring();
        const hx::InventoryRow* const row = hx::FindRecordClass(class_name);
        EXPECT_NE(row, nullptr) << folder.path();
        if (row == nullptr) continue;
        const auto defaults = folder.path() / kDefaults;
        for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
            const auto& path = file.path();
            if (path.extension() != ".xml" || path == defaults || path.string().ends_with(kRewritten)) {
                continue;
            }
            documents.push_back({row, path, exists(defaults) ? defaults : std::filesystem::path()});
        }
    }
    std::ranges::sort(documents, {}, &GoldenDocument::path);
    return documents;
}

std::string BytesOf(const std::filesystem::path& path) {
    std::string bytes;
    EXPECT_FALSE(hx::ReadFile(path, bytes)) << path;
    return bytes;
}

ReadOutcome ReadRecord(const hx::InventoryRow& row, std::wstring text, void* record, const void* defaults) {
    hx::MInFilerTaggedXml reader(std::move(text), row.root);
    hx::MFilerTaggedPair filer(reader);
    if (!row.group.empty()) filer.BeginGroup(row.group);
    try {
        return {row.type->read(record, filer, row.element, defaults), false};
    } catch (const hx::MException&) {
        return {false, true};
    }
}

std::wstring WriteRecord(const hx::InventoryRow& row, const void* record) {
    return hxctl::WriteRecord(record, row, row.element);
}

std::wstring CurrentDocument(const hx::InventoryRow& row) {
    const hx::RecordVersion& version = row.type->version;
    const bool has_version = version.word != hx::RecordVersion::kNone;
    const auto name = has_version ? "version_" + std::to_string(version.current) + ".xml" : "whole.xml";
    return hx::DecodeTextFile(BytesOf(GoldenFolder() / hx::ToUtf8(row.type->name) / name)).value_or(L"");
}
