// The properties document of a model, written by the records that the pages read it with.
#include <cmath>
#include <cwchar>
#include <numbers>
#include <string_view>

#include "core/filer/MOutFilerTaggedXml.h"
#include "settings/measurement/FrequencySelectionHelper.h"
#include "settings/properties/MHXFamilyDeviceProperties.h"
#include "settings/properties/MPropertiesHelper.h"
#include "simulator/models/ModelDetails.h"

namespace hx::simulator {
namespace {

constexpr wchar_t kDriverVersion[] = L"4.2.0.118";
constexpr wchar_t kServerVersion[] = L"5.0.3";
constexpr CalendarDate kDriverBuilt{2025, 1, 30};
constexpr CalendarDate kServerBuilt{2025, 2, 28};

constexpr double kMountOffset_mm = 101.5;  // of the planes' origin from the joint that carries the scanner
constexpr double kBaseLine_mm = 144;       // from laser to imager
constexpr double kModelOffset_mm = 45;

struct Button {
    const wchar_t* name;
    const wchar_t* colour;
};

constexpr Button kButtons[] = {{L"Start/Stop", L"Green"}, {L"Mode", L"Blue"}, {L"Cancel", L"Red"}};

bool ManagesWidth(const ScannerModel& model) {
    return model.fov_managed == 1 || model.fov_managed == 3;
}
bool ManagesDepth(const ScannerModel& model) {
    return model.fov_managed == 2 || model.fov_managed == 3;
}

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

// Turned about its x axis, and moved along z.
Transform4x4 Tilted(double degrees, double z_mm) {
    const double c = std::cos(Radians(degrees));
    const double s = std::sin(Radians(degrees));
    return {{1, 0, 0, 0, 0, c, -s, 0, 0, s, c, z_mm, 0, 0, 0, 1}};
}

// Turned about its z axis, and moved along it.
Transform4x4 Turned(double degrees, double z_mm) {
    const double c = std::cos(Radians(degrees));
    const double s = std::sin(Radians(degrees));
    return {{c, -s, 0, 0, s, c, 0, 0, 0, 0, 1, z_mm, 0, 0, 0, 1}};
}

double MountDegrees(const ScannerModel& model) {
    // "60deg"
    return model.mount_rotation == nullptr
               ? 0.0
               : static_cast<double>(std::wcstol(model.mount_rotation, nullptr, 10));
}

MCommonDriverProperties DriverOf(const ScannerModel& model) {
    MCommonDriverProperties driver;
    driver.InternalName = model.driver_internal_name;
    driver.DisplayName = model.driver_display_name;
    driver.DriverVersion = kDriverVersion;
    for (const ScannerModel& other : ScannerModels()) {
        if (driver.InternalName == other.driver_internal_name) {
            driver.SupportedDevices.emplace_back(other.device_internal_name);
        }
    }
    driver.SupportedFacets = {L"Measure", L"EditDynamicSettingsPresets"};
    return driver;
}

MLaserPlane PlaneOf(const ScannerModel& model, const ModelDetails& details, uint32_t number) {
    const MeasurementArea& area = details.area;
    // The planes fan out around the middle.
    const double tilt = (number - (model.plane_count - 1) / 2.0) * details.plane_tilt_degrees;
    MLaserPlane plane;
    plane.PlaneNumber = static_cast<int32_t>(number);
    plane.PlaneFrequency = model.full_frame_rate_hz / model.plane_count;
    plane.Resolution = details.resolution_mm;
    plane.StandardDeviation = details.deviation_mm;
    plane.LaserOrigin = {0, area.near_mm - area.near_half_width_mm / area.Spread(), kBaseLine_mm / 2};
    plane.CameraPinhole = {0, plane.LaserOrigin.Y, -kBaseLine_mm / 2};
    plane.EntranceOfThePupilCentre = {0, plane.LaserOrigin.Y, -kBaseLine_mm / 2 + 8};
    plane.PlaneToAutoJoint = Tilted(tilt, kMountOffset_mm);
    plane.MeasurementArea = {{-area.near_half_width_mm, area.near_mm},
                             {-area.far_half_width_mm, area.far_mm},
                             {area.far_half_width_mm, area.far_mm},
                             {area.near_half_width_mm, area.near_mm}};
    plane.ExposureRange_us = static_cast<int16_t>(model.longest_exposure_us);
    plane.VideoWin_RorConfigX = ManagesWidth(model) ? L"100%;50%" : L"100%";
    plane.VideoWin_RorConfigY = ManagesDepth(model) ? L"100%;Near 50%;50%;Far 50%" : L"100%";
    plane.FrequencySelection =
        FrequencySelectionHelper::GetFrequencySelectionFromEnum(FrequencySelection::k100Percent);
    return plane;
}

void SetCommon(MCommonDeviceProperties& device, const ScannerModel& model) {
    device.InternalName = model.device_internal_name;
    device.DisplayName = model.device_display_name;
    device.ConfigurationIdentity = device.InternalName;
    device.Configurations[L"Localizer"] = L"Arm";
    if (model.mount_rotation != nullptr) {
        device.Configurations[L"MountRotation"] = model.mount_rotation;
        device.ConfigurationIdentity += L":MountRotation=" + device.Configurations[L"MountRotation"];
    }
    for (const Button& row : kButtons) {
        MButtonProperties& button = device.Buttons.emplace_back();
        button.ButtonID = static_cast<int32_t>(device.Buttons.size());
        button.ButtonDisplayName = row.name;
        button.ButtonColour = row.colour;
    }
}

MHXFamilyDeviceProperties DeviceOf(const ScannerModel& model) {
    const ModelDetails& details = DetailsOf(model);
    MHXFamilyDeviceProperties device;
    SetCommon(device, model);
    device.Powered = true;
    for (uint32_t number = 0; number < model.plane_count; ++number) {
        device.Planes.Planes.push_back(PlaneOf(model, details, number));
    }
    device.ReferenceToAutoJoint = Turned(MountDegrees(model), kMountOffset_mm);
    device.Scanner3DModelTransforms.ReferenceFrameModelTransform = Turned(0, kModelOffset_mm);
    device.Scanner3DModelTransforms.MountFrameModelTransform = Turned(MountDegrees(model), -kModelOffset_mm);
    device.ScannerSerialNumber = model.serial_number;
    device.ScannerHardwareVersion = details.hardware_version;
    device.ScannerManufacturingDate = details.manufactured;
    device.FpgaSerialNumber = details.fpga_serial_number;
    device.FirmwareFpgaVersion = details.firmware_version;
    device.FirmwareFpgaBuildDate = details.firmware_built;
    device.FirmwareDriverVersion = kDriverVersion;
    device.FirmwareDriverBuildDate = kDriverBuilt;
    device.FirmwareServerVersion = kServerVersion;
    device.FirmwareServerBuildDate = kServerBuilt;
    device.CalibrationDate = details.calibrated;
    return device;
}

}  // namespace

std::wstring PropertiesOf(const ScannerModel& model) {
    MOutFilerTaggedXml writer(MPropertiesHelper::kRoot);
    MFilerTaggedPair filer(writer);
    MPropertiesHelper::WriteDocument(filer, DriverOf(model), DeviceOf(model));
    return writer.TakeText();
}

}  // namespace hx::simulator
