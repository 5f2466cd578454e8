// Reading and writing one record of any class.
#pragma once

#include <memory>
#include <string>

#include "settings/inventory/RecordInventory.h"

namespace hxctl {

struct RecordReading {
    bool read = false;
    std::wstring error_codes;      // of what was thrown; empty if nothing was
    std::shared_ptr<void> record;  // as the reading left it
};

// Reads the record in the group `element` of the document `text`; what is missing comes from `defaults`, a
// record of the same class, or from a new one.
RecordReading ReadRecord(std::wstring text, const hx::InventoryRow& row, std::wstring_view element,
                         const void* defaults = nullptr);
// The document with the record alone; empty if it cannot be written.
std::wstring WriteRecord(const void* record, const hx::InventoryRow& row, std::wstring_view element);

}  // namespace hxctl
