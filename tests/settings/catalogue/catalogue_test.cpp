// The device catalogue: entries, collections, and what they raise.
#include <gtest/gtest.h>

#include "settings/catalogue/MDeviceType.h"
#include "tests/settings/raised.h"
#include "tests/settings/record_text.h"

namespace {

using hx::RecordType;
using Text = std::wstring;

Text Name(const Text& name) {
    return Child(L"InternalName", L"string", name);
}
const Text kV = Version(1, L"uint");
const Text kNewer = Version(2, L"uint");
const Text kEmptyName = L"<InternalName type=\"string\"/>\n";
const Text kSettings = L"<DeviceSettings><own a=\"1\">of the driver</own></DeviceSettings>\n";

Text Configuration(const Text& name) {
    return Group(L"Configuration", kV + Name(name) + kSettings);
}
Text Capability(const Text& name) {
    return Group(L"Capability",
                 kV + Name(name) + Group(L"SupportedConfigurations", kV + Configuration(L"C")));
}
Text Model(const Text& name, const Text& settings = kSettings) {
    return Group(L"DeviceModel",
                 kV + Name(name) + settings + Group(L"SupportedCapabilities", kV + Capability(L"P")));
}
Text Type(const Text& name) {
    return Group(L"DeviceType", kV + Name(name) + kSettings + Group(L"SupportedDevices", kV + Model(L"M")));
}

TEST(Catalogue, EveryRecordReadsItsChildrenInOrderAndTellsWhatIsWrong) {
    const RecordType* const configuration = &hx::MConfiguration::kType;
    const RecordType* const configurations = &hx::MSupportedConfigurations::kType;
    const RecordType* const capability = &hx::MConfigurationCapability::kType;
    const RecordType* const capabilities = &hx::MSupportedConfigurationCapabilities::kType;
    const RecordType* const model = &hx::MDeviceModel::kType;
    const RecordType* const models = &hx::MSupportedDevices::kType;
    const RecordType* const device = &hx::MDeviceType::kType;
    const RecordType* const list = &hx::MDeviceSettingsList::kType;
    const Text all = L"as read";
    const Text of_device = Group(L"SupportedDevices", kV + Model(L"M"));
    const Text old_list = kV + Type(L"old");
    const Text old_device = kV + Name(L"old") + kSettings + of_device;
    // Each is read into a record that has read `before`.
    struct Row {
        const char* what;
        const RecordType* type;
        Text before;
        Text body;
        bool read;
        Text raised;
        Text written;
    };
    const Row rows[] = {
        {"list", list, L"", kV + Type(L"A") + Type(L"B"), true, L"", all},
        {"in the order of the names", list, L"", kV + Type(L"B") + Type(L"A"), true, L"",
         kV + Type(L"A") + Type(L"B")},
        {"old members go", list, old_list, kV + Type(L"A"), true, L"", all},
        {"version 0", list, L"", Version(0, L"uint") + Type(L"A"), true, L"", kV + Type(L"A")},
        {"newer version", list, old_list, kNewer + Type(L"A"), false, L"", kV},
        {"no version", list, old_list, Type(L"A"), false, L"", kV},
        {"version of another type", list, old_list, Version(1) + Type(L"A"), false, L"", kV},
        {"no type", list, old_list, kV, false, L"MDeviceSettingsList.ReadImpTagged:Read category=DeviceType",
         kV},
        {"no model", models, L"", kV, false, L"MSupportedDevices.ReadImpTagged:Read category=DeviceModel",
         kV},
        {"no capability", capabilities, L"", kV, false,
         L"MSupportedConfigurationCapabilities.ReadImpTagged:Read category=ConfigurationCapability", kV},
        {"no configuration", configurations, L"", kV, false,
         L"MSupportedConfigurations.ReadImpTagged:Read category=Configuration", kV},
        {"a member that cannot be read is the last", configurations, L"",
         kV + Configuration(L"A") + Group(L"Configuration", kNewer) + Configuration(L"B"), true, L"",
         kV + Configuration(L"A")},
        {"only such a member", configurations, L"", kV + Group(L"Configuration", kNewer), false,
         L"MSupportedConfigurations.ReadImpTagged:Read category=Configuration", kV},
        {"a member without a name", models, L"",
         kV + Model(L"A") + Group(L"DeviceModel", kV + kEmptyName + kSettings), false,
         L"MDeviceModel.ReadImpTagged:EmptyInternalName", kV + Model(L"A")},
        {"a later model replaces one of its name", models, L"",
         kV + Model(L"A", L"<DeviceSettings><old/></DeviceSettings>") + Model(L"A"), true, L"",
         kV + Model(L"A")},
        {"configurations are kept as they came", configurations, L"",
         kV + Configuration(L"B") + Configuration(L"A") + Configuration(L"B"), true, L"", all},
        {"capabilities are kept as they came", capabilities, L"",
         kV + Capability(L"B") + Capability(L"A") + Capability(L"B"), true, L"", all},

        {"device type", device, L"", old_device, true, L"", all},
        {"newer device type", device, old_device, kNewer + Name(L"A"), false, L"", old_device},
        {"device type without a version", device, old_device, Name(L"A"), false, L"", old_device},
        {"device type of an empty name", device, old_device, kV + kEmptyName + kSettings, false,
         L"MDeviceType.ReadImpTagged:EmptyInternalName", kV + kEmptyName + kSettings + of_device},
        {"device type without a name", device, old_device, kV + kSettings + of_device, false, L"",
         old_device},
        {"device type without settings ends there", device, old_device, kV + Name(L"A") + of_device, false,
         L"", kV + Name(L"A") + kSettings + of_device},
        {"device type without devices", device, old_device, kV + Name(L"A") + kSettings, false, L"",
         kV + Name(L"A") + kSettings + of_device},
        {"device type whose devices are none", device, L"",
         kV + Name(L"A") + kSettings + Group(L"SupportedDevices", kV), false,
         L"MSupportedDevices.ReadImpTagged:Read category=DeviceModel",
         kV + Name(L"A") + kSettings + Group(L"SupportedDevices", kV)},
        {"empty settings", configuration, L"", kV + Name(L"A") + L"<DeviceSettings/>\n", true, L"", all},
        {"model of an empty name", model, L"", kV + kEmptyName, false,
         L"MDeviceModel.ReadImpTagged:EmptyInternalName", L"not written"},
        {"capability of an empty name", capability, L"", kV + kEmptyName, false,
         L"MConfigurationCapability.ReadImpTagged:EmptyInternalName",
         kV + kEmptyName + Group(L"SupportedConfigurations", kV)},
        {"configuration of an empty name", configuration, L"", kV + kEmptyName, false,
         L"MConfiguration.ReadImpTagged:EmptyInternalName", L"not written"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const auto record = row.type->make();
        bool read = false;
        const auto reading = [&](const Text& children) {
            read = false;
            read = ReadElement(children, [&](hx::MFilerTaggedPair& filer) {
                return row.type->read(record.get(), filer, L"E", record.get());
            });
        };
        RaisedBy([&] { reading(row.before); });
        EXPECT_EQ(RaisedBy([&] { reading(row.body); }), row.raised);
        EXPECT_EQ(read, row.read);
        EXPECT_EQ(Written(*row.type, record.get()), row.written == all ? row.body : row.written);
    }
}

TEST(Catalogue, ANameIsNotTakenAway) {
    hx::MDeviceType type;
    EXPECT_TRUE(type.SetInternalName(L"A"));
    EXPECT_FALSE(type.SetInternalName(L""));
    EXPECT_EQ(type.InternalName, L"A");
}

}  // namespace
