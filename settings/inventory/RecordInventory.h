// Every record class of this library, for whoever handles them all alike: the tool, the format's document,
// the tests. Any thread.
#pragma once

#include "core/records/RecordType.h"

namespace hx {

struct InventoryRow {
    const RecordType* type;
    // The element that usually holds such a record, and the root of the documents in which it does; the owner
    // of a record may choose others.
    std::wstring_view element;
    std::wstring_view root;
    // The group within the root that holds the element; empty if it is the root itself.
    std::wstring_view group = {};
};

// In the order of the format's document.
std::span<const InventoryRow> RecordInventory();
// Null if there is no class of that name.
const InventoryRow* FindRecordClass(std::wstring_view name);

}  // namespace hx
