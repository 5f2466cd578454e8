// What became of one record of a document: every field with its value and unit, what the document did not
// have, and why the record was not read.
#pragma once

#include "apps/hxctl/document_element.h"
#include "apps/hxctl/record_json.h"
#include "apps/hxctl/record_reading.h"

namespace hxctl {

// {"class","purpose","version","newest","read","reason","errorCodes","fields":[FIELD...],"unknown":[NAME...]};
// "version" is null if the document has none, or the class. FIELD is {"name","value","unit","inDocument",
// "note"}; a record in a record has "class" and "fields" in place of a value, a list of records has
// "count" and "entries", the first of them, which are fields without names; a long list of values has "count"
// beside the first of them. What does not apply is left out.
Json RecordAccount(const hx::RecordType& type, const RecordReading& reading, const DocumentElement& element);

}  // namespace hxctl
