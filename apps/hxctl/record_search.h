// Where a document has the record of a class.
#pragma once

#include <string>

#include "settings/inventory/RecordInventory.h"

namespace hxctl {

// The class's usual element, if the root has it, or if nothing else will do: else the only element that is
// such a record by its children, which `document` then has alone below the root.
std::wstring FindElementOf(const hx::InventoryRow& row, std::wstring& document);

}  // namespace hxctl
