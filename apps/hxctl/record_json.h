// A record of any class as JSON, field by field, as its table tells.
#pragma once

#include <nlohmann/json.hpp>

#include "core/records/RecordType.h"

namespace hxctl {

using Json = nlohmann::ordered_json;

// Numbers that JSON cannot tell are the texts "nan", "inf" and "-inf".
Json JsonOf(hx::FieldRef field);
Json FieldsOf(const hx::RecordType& type, void* record);
// The names of the fields whose validity flag is set; empty for a class without such flags.
Json ValidFieldsOf(const hx::RecordType& type, const void* record);

}  // namespace hxctl
