// Hardware settings whose every value knows whether it came from the document: read with a validity flag for
// each, written in full or as changes only. Shared by the records of the scanner families.
#pragma once

#include <bitset>

#include "core/records/RecordFields.h"

namespace hx {

// The flags of all families have one size; an index without a field is only set and cleared with the others.
inline constexpr uint32_t kValidityFlags = 41;
using ValidityFlags = std::bitset<kValidityFlags>;

// Reads every row that `version` has, and sets or clears its flag. True if all that are not optional were
// there; rows without a flag are read, too.
bool ReadFlagged(std::span<const Field> fields, void* record, const void* defaults, MFilerTaggedPair& filer,
                 int64_t version, ValidityFlags& flags);

// What stands for a value when it is written: the record's own if it is valid, else the one of the reference
// copy. Without a reference copy (null) it is the record's own, and counts as changed.
struct FlaggedWriting {
    const void* record;
    const void* reference;
    const ValidityFlags& flags;
    bool changes_only;
};
// Writes every flagged row that `version` has; stops at the first failure.
bool WriteFlagged(std::span<const Field> fields, const FlaggedWriting& writing, MFilerTaggedPair& filer,
                  int64_t version);

}  // namespace hx
