// What a document has where a table has a row: a value of some type, or a group. Any thread.
#pragma once

#include "core/records/RecordType.h"

namespace hx {

// The name that readers look for: up to a blank, which some names of old documents have.
std::wstring_view ElementOf(const Field& field);
// The type word of a value; empty for a group. `record` is of the class whose row it is.
std::wstring_view WordOf(const Field& field, void* record);
// Of the child "Version"; empty for a class without one.
std::wstring_view WordOf(const RecordVersion& version);
// Whether two rows list the same field.
bool IsSameField(const Field& one, const Field& other, void* record);
// Whether `former` is the row of a name that the field of `row` had.
bool IsFormerName(const Field& former, const Field& row, void* record);
// The class, or none, of a record inside a record, of the entries of a list, or of what is read and dropped.
const RecordType* ClassOf(const Field& field, void* record);

}  // namespace hx
