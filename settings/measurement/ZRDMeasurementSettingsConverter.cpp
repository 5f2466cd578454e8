#include "settings/measurement/ZRDMeasurementSettingsConverter.h"

#include "core/errors/MRegisteredClasses.h"
#include "settings/measurement/ZRDMeasurementSettings.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"ZRDMeasurementSettingsConverter"};
const MRegisteredClasses kClasses(kNames);

}  // namespace

void ZRDMeasurementSettingsConverter::GetDefaultMeasurementSettings(ZRDMeasurementSettings& record) {
    SetDefaults(record);
    record.SetAllValid(true);
}

}  // namespace hx
