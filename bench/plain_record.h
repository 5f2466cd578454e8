// The fields of the product's records as plain structs, for those who read and write them without the
// product. Each struct hands its fields, in their order, to whatever filer there is; a field may be a struct
// or a list.
#pragma once

namespace hx::bench {

// Base of the structs.
struct PlainRecord {
    bool operator==(const PlainRecord&) const = default;
};

}  // namespace hx::bench
