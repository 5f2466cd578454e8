#include "settings/inventory/PropertiesDocument.h"

#include "core/records/FieldsOf.h"

namespace hx {
namespace {

using F = FieldsOf<PropertiesDocument>;

// How the reading went, told with the fields.
constexpr FieldOps kDeviceReadOps{
    TaggedType<bool>::kWord,
    0,
    [](void* record) -> FieldRef { return &static_cast<PropertiesDocument*>(record)->DeviceRead; },
    nullptr,
    nullptr,
};

constexpr Field kFields[] = {
    F::Record<&PropertiesDocument::Driver>(MPropertiesHelper::kDriver),
    F::Record<&PropertiesDocument::Device>(MPropertiesHelper::kDevice).Optional(),
    {L"DeviceRead", &kDeviceReadOps, {}, {}},
};

// Stands for the device where its result would be lost: one that is refused does a document no harm.
class NotedDevice : public MCommonDeviceProperties {
public:
    NotedDevice(MCommonDeviceProperties& device, bool& asked, bool& read)
        : m_device(device), m_asked(asked), m_read(read) {}

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                    const MCommonDeviceProperties&) override {
        m_asked = true;
        m_read = m_device.ReadTagged(filer, element, m_device);
        return m_read;
    }

private:
    MCommonDeviceProperties& m_device;
    bool& m_asked;
    bool& m_read;
};

}  // namespace

constinit const RecordType PropertiesDocument::kType = RecordTypeOf<PropertiesDocument>(
    L"MPropertiesHelper", {RecordVersion::kUint, MPropertiesHelper::kVersion}, kFields,
    "The properties document of a driver. The device lies in a \"DeviceList\", which may be absent; its "
    "family is not checked.");

bool PropertiesDocument::ReadTagged(MFilerTaggedPair& filer, std::wstring_view,
                                    const PropertiesDocument& defaults) {
    *this = defaults;
    DeviceRead = m_has_device_list = false;
    NotedDevice device(Device, m_has_device_list, DeviceRead);
    MPropertiesHelper(Driver, device).Read(filer, false);
    return true;
}

bool PropertiesDocument::WriteTagged(MFilerTaggedPair& filer, std::wstring_view) const {
    if (m_has_device_list) return MPropertiesHelper::WriteDocument(filer, Driver, Device);
    return WriteVersion(filer, kType.version) && Driver.WriteTagged(filer, MPropertiesHelper::kDriver);
}

}  // namespace hx
