#include "settings/measurement/MHXMeasurementSettingsConverter.h"

#include "core/errors/MRegisteredClasses.h"
#include "settings/measurement/MHXMeasurementSettings.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MHXMeasurementSettingsConverter"};
const MRegisteredClasses kClasses(kNames);

}  // namespace

void MHXMeasurementSettingsConverter::GetDefaultMeasurementSettings(MHXMeasurementSettings& record) {
    SetDefaults(record);
    record.SetAllValid(true);
}

}  // namespace hx
