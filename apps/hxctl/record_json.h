// A record of any class as JSON, field by field, as its table tells.
#pragma once

#include <limits>

#include "apps/hxctl/json.h"
#include "core/records/RecordType.h"

namespace hxctl {

// Numbers that JSON cannot tell are the texts "nan", "inf" and "-inf".
Json JsonOf(hx::FieldRef field);
Json FieldsOf(const hx::RecordType& type, void* record);
// The first entries of a list, at most so many.
Json EntriesOf(hx::ListRef list, size_t most = std::numeric_limits<size_t>::max());
// The names of the fields whose validity flag is set, those of records inside the record as "Inner/Field".
Json ValidFieldsOf(const hx::RecordType& type, void* record);

}  // namespace hxctl
