#include "settings/properties/MCommonDeviceProperties.h"

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/ListType.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MCommonDeviceProperties"};
const StreamedClasses kClasses(kNames);

using Device = MCommonDeviceProperties;
using F = FieldsOf<Device>;

constexpr std::wstring_view kNumberOfButtons = L"NumberOfButtons";
constexpr std::wstring_view kButton = L"Button";
constexpr std::wstring_view kCapability = L"Capability";
constexpr std::wstring_view kInternalName = L"InternalName";
constexpr std::wstring_view kConfiguration = L"Configuration";

FieldRef ButtonsAt(void* record) {
    return ListRef{&static_cast<Device*>(record)->Buttons, &VectorType<MButtonProperties>::kType};
}

// Buttons that lack something are passed over. A number greater than that of the elements ends with them.
bool ReadButtons(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
    auto& buttons = static_cast<Device*>(record)->Buttons;
    const auto read_all = [&] {
        buttons.clear();
        int32_t number = 0;
        filer.Read(kNumberOfButtons, number, -1);
        bool found = true;
        for (int32_t i = 0; i < number && found; ++i) {
            MButtonProperties button;
            found = false;
            const bool read = InGroup(filer, kButton, [&] {
                found = filer.Found();
                return ReadFields(button, button, filer, 0, ReadRule::kUntilFailure);
            });
            if (found && read) buttons.push_back(std::move(button));
        }
        return true;
    };
    return InGroupOr(filer, field.child, read_all, [&] {
        buttons = static_cast<const Device*>(fallback)->Buttons;
        return false;
    });
}

bool WriteButtons(const Field& field, const void* record, MFilerTaggedPair& filer) {
    return InGroup(filer, field.child, [&] {
        const auto& buttons = static_cast<const Device*>(record)->Buttons;
        bool all = filer.Write(kNumberOfButtons, static_cast<int32_t>(buttons.size()));
        for (const MButtonProperties& button : buttons) all = all && button.WriteTagged(filer, kButton);
        return all;
    });
}

FieldRef ConfigurationsAt(void* record) {
    return ListRef{&static_cast<Device*>(record)->Configurations, &MapType<std::wstring>::kType};
}

// What the list tells is added to what the record has.
bool ReadConfigurations(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
    auto& configurations = static_cast<Device*>(record)->Configurations;
    const auto read_all = [&] {
        std::wstring name;
        std::wstring configuration;
        bool found = false;
        const auto read_one = [&] {
            found = filer.Found();
            return filer.Read(kInternalName, name, std::wstring()) &&
                   filer.Read(kConfiguration, configuration, std::wstring());
        };
        while (InGroup(filer, kCapability, read_one) && found) configurations[name] = configuration;
        return true;
    };
    return InGroupOr(filer, field.child, read_all, [&] {
        configurations = static_cast<const Device*>(fallback)->Configurations;
        return false;
    });
}

bool WriteConfigurations(const Field& field, const void* record, MFilerTaggedPair& filer) {
    return InGroup(filer, field.child, [&] {
        for (const auto& entry : static_cast<const Device*>(record)->Configurations) {
            const bool written = InGroup(filer, kCapability, [&] {
                return filer.Write(kInternalName, entry.first) && filer.Write(kConfiguration, entry.second);
            });
            if (!written) return false;
        }
        return true;
    });
}

constexpr FieldOps kButtonsOps{L"MButtonProperties", 0, &ButtonsAt, &ReadButtons, &WriteButtons};
constexpr FieldOps kConfigurationsOps{TaggedType<std::wstring>::kWord, 0, &ConfigurationsAt,
                                      &ReadConfigurations, &WriteConfigurations};

constexpr Field kCommonFields[] = {
    F::Value<&Device::InternalName>(L"InternalName", L""),
    F::Value<&Device::ConfigurationIdentity>(L"ConfigurationIdentity", L""),
    F::Value<&Device::DisplayName>(L"DisplayName", L""),
    Field{L"Buttons", &kButtonsOps, {}, "\"NumberOfButtons\", then each in a \"Button\""}.Optional(),
    Field{L"ConfigurationList",
          &kConfigurationsOps,
          {},
          "each in a \"Capability\" with \"InternalName\" and \"Configuration\""}
        .Optional(),
};
constexpr Field kFields[] = {F::Element<Device::kCommon>(L"CommonDeviceProperties")};

}  // namespace

constinit const RecordType MCommonDeviceProperties::kCommon{L"CommonDeviceProperties",
                                                            {RecordVersion::kUint, 1},
                                                            kCommonFields,
                                                            "What is told of every device.",
                                                            nullptr,
                                                            nullptr,
                                                            nullptr};

constinit const RecordType MCommonDeviceProperties::kType = RecordTypeOf<MCommonDeviceProperties>(
    L"MCommonDeviceProperties", {RecordVersion::kNone, 0}, kFields, "A device that is attached to a driver.");

MCommonDeviceProperties::MCommonDeviceProperties() {
    SetDefaults(*this);
}

bool MCommonDeviceProperties::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                         const MCommonDeviceProperties& defaults) {
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool MCommonDeviceProperties::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

bool MCommonDeviceProperties::ReadImpTagged(MFilerTaggedPair& filer,
                                            const MCommonDeviceProperties& defaults) {
    return ReadFields(*this, defaults, filer, 0, ReadRule::kUntilFailure);
}

}  // namespace hx
