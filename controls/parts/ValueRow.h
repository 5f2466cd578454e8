// A number of a profile on a settings page: a row for each that has a slider and an edit. A page's table of
// them is what its ValueControls walk.
#pragma once

#include <cstdint>
#include <type_traits>

#include "controls/editor/DynamicSettingsData.h"

namespace hx {

struct ValueRow {
    uint32_t slider;  // ids
    uint32_t edit;
    int32_t minimum;  // of the record and of the slider
    int32_t maximum;
    int32_t page_size;
    int32_t line_size;
    bool is_vertical;       // the maximum is at the top, where a slider has its least position
    int32_t unit;           // what 1 in the edit is in the record
    bool is_read_as_typed;  // alone: the edit shows less than the record has, and is not read with the others
    int32_t (*get)(const DynamicSettingsData& data);
    void (*set)(DynamicSettingsData& data, int32_t value);
};

template <auto Member>
int32_t GetMember(const DynamicSettingsData& data) {
    return static_cast<int32_t>(data.*Member);
}

template <auto Member>
void SetMember(DynamicSettingsData& data, int32_t value) {
    using Type = std::remove_reference_t<decltype(data.*Member)>;
    data.*Member = static_cast<Type>(value);
}

}  // namespace hx
