// The table of models: what others take for granted about its rows, and the documents that are made of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "settings/properties/MHXFamilyDeviceProperties.h"
#include "settings/properties/MPropertiesHelper.h"
#include "simulator/models/ModelDetails.h"

namespace {

using namespace hx;
using namespace hx::simulator;

TEST(ScannerModels, AreFoundWithoutCase) {
    for (const wchar_t* name : {L"hx", L"kt05fxr3pa", L"KT05FXR3PTB", L"KT05FxR3W", L"t820", L"HANDHELD"}) {
        EXPECT_NE(FindScannerModel(name), nullptr) << name;
    }
    EXPECT_EQ(FindScannerModel(L"HXHandheld"), nullptr) << "the device's name is not the model's";
    EXPECT_EQ(FindScannerModel(L""), nullptr);
}

TEST(ScannerModels, EveryRowFitsItsDetailsAndItsPresets) {
    std::set<std::wstring> devices;
    for (const ScannerModel& model : ScannerModels()) {
        SCOPED_TRACE(std::string(model.name, model.name + std::wcslen(model.name)));
        EXPECT_TRUE(devices.insert(model.device_internal_name).second);
        EXPECT_STREQ(DetailsOf(model).device_internal_name, model.device_internal_name);
        EXPECT_LE(model.longest_exposure_us, 32767u) << "told in 16 bits";
        size_t hidden = 0;
        std::set<std::wstring> names;
        for (const FactoryPreset& preset : model.presets) {
            EXPECT_TRUE(names.insert(preset.name).second);
            EXPECT_TRUE(preset.name[0] == L'$' || preset.name[0] == L'@');
            hidden += preset.name[0] == L'@' ? 1 : 0;
            EXPECT_NE(std::ranges::count(model.gains, preset.gain), 0) << "a gain that the model lacks";
            EXPECT_GT(preset.exposure_portion, 0);
            EXPECT_LE(preset.exposure_portion, 1);
            EXPECT_LE(preset.signal_threshold_percent, model.has_fov_indicator ? 5u : 100u);
        }
        EXPECT_TRUE(names.contains(L"$DEFAULT"));
        EXPECT_EQ(hidden, 1u);
    }
}

TEST(ScannerModels, PropertiesAreReadByThePagesRecords) {
    for (const ScannerModel& model : ScannerModels()) {
        SCOPED_TRACE(std::string(model.name, model.name + std::wcslen(model.name)));
        MCommonDriverProperties driver;
        MHXFamilyDeviceProperties device;
        ASSERT_NO_THROW(MPropertiesHelper(driver, device).ReadXML(PropertiesOf(model), true));
        EXPECT_EQ(driver.InternalName, model.driver_internal_name);
        EXPECT_NE(std::ranges::count(driver.SupportedDevices, model.device_internal_name), 0);
        EXPECT_EQ(device.InternalName, model.device_internal_name);
        EXPECT_EQ(device.DisplayName, model.device_display_name);
        EXPECT_EQ(device.ScannerSerialNumber, model.serial_number);
        EXPECT_EQ(device.Configurations.contains(L"MountRotation"), model.mount_rotation != nullptr);
        EXPECT_TRUE(device.ReferenceToAutoJoint.HasRotation());
        EXPECT_TRUE(device.Scanner3DModelTransforms.MountFrameModelTransform.HasRotation());
        EXPECT_GE(device.CalibrationDate.Year, device.ScannerManufacturingDate.Year);
        ASSERT_EQ(device.Planes.Planes.size(), model.plane_count);
        for (uint32_t number = 0; number < model.plane_count; ++number) {
            const MLaserPlane* const plane = device.Planes.GetPlane(static_cast<int32_t>(number));
            ASSERT_NE(plane, nullptr);
            EXPECT_EQ(static_cast<uint32_t>(plane->ExposureRange_us), model.longest_exposure_us);
            EXPECT_TRUE(plane->PlaneToAutoJoint.HasRotation());
            ASSERT_EQ(plane->MeasurementArea.size(), 4u);
            EXPECT_LT(plane->MeasurementArea[0].Y, plane->MeasurementArea[1].Y);
            EXPECT_EQ(plane->FrequencySelection, L"100%");
        }
    }
    MCommonDriverProperties driver;
    MHXFamilyDeviceProperties device;
    MPropertiesHelper(driver, device).ReadXML(PropertiesOf(*FindScannerModel(L"T820")), true);
    EXPECT_EQ(device.Configurations[L"MountRotation"], L"60deg");
}

}  // namespace
