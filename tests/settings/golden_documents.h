// The documents of tests/golden: a folder for each record class, in it for each version of the class a
// document NAME.xml, what the tool tells of it (NAME.json) and what the record writes afterwards
// (NAME.rewritten.xml, absent if it cannot be written). All of a folder are read with the record in
// defaults.xml as defaults, if there is one.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "settings/inventory/RecordInventory.h"

struct GoldenDocument {
    const hx::InventoryRow* row;
    std::filesystem::path path;
    std::filesystem::path defaults;  // empty: there are none

    std::filesystem::path Beside(const char* extension) const {
        return std::filesystem::path(path).replace_extension(extension);
    }
};

std::filesystem::path GoldenFolder();
// Ordered by path. A folder or file that belongs to none is a failure of the test that asks.
std::vector<GoldenDocument> GoldenDocuments();
// Empty and a failure if it cannot be read.
std::string BytesOf(const std::filesystem::path& path);

struct ReadOutcome {
    bool read = false;
    bool raised = false;
};
// Reads the record of that class from a document. No exception but the library's own may leave the read.
ReadOutcome ReadRecord(const hx::InventoryRow& row, std::wstring text, void* record, const void* defaults);
// Empty if it cannot be written.
std::wstring WriteRecord(const hx::InventoryRow& row, const void* record);
// The golden document of what the class writes today: the one of its current version, or "whole" of a class
// without versions.
std::wstring CurrentDocument(const hx::InventoryRow& row);
