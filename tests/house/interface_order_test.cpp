// The order in which interfaces list their operations: modules that were compiled years apart rely on it.
#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "core/errors/MErrorCom.h"
#include "core/filer/IInFilerTagged.h"
#include "core/filer/IOutFilerTagged.h"
#include "core/keys/IRegistryKeyElementBase.h"
#include "core/log/MLoggingDevice.h"
#include "core/log/MSpecialFolderImplementation.h"
#include "hxapi/ICoMHXConnSettings.h"
#include "hxapi/ICoMHXMeasSettings.h"
#include "hxapi/IGetPointer.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "settings/connection/MHXConnectionSettings.h"
#include "settings/measurement/MHXMeasurementSettings.h"
#include "settings/measurement/ZRDMeasurementSettings.h"
#include "settings/profile/MLaserProfileSettings.h"
#include "settings/properties/MCommonDriverProperties.h"
#include "settings/properties/MHXFamilyDeviceProperties.h"
#include "tests/vtable_slot.h"

namespace {

using Key = Orvel::RegistryKeys::IRegistryKeyElementBase;

// A destructor fills two slots here, so that what it is listed as slot 1 stands in slots 0 and 1.
constexpr size_t kBehindDestructor = 2;

template <class Value, class Fallback = Value>
size_t ReadSlot() {
    using Read = bool (hx::IInFilerTagged::*)(std::wstring_view, Value&, Fallback);
    return SlotOf(static_cast<Read>(&hx::IInFilerTagged::Read));
}

template <class Value>
size_t WriteSlot() {
    using Write = bool (hx::IOutFilerTagged::*)(std::wstring_view, Value);
    return SlotOf(static_cast<Write>(&hx::IOutFilerTagged::Write));
}

void ExpectConsecutive(const std::vector<size_t>& slots, size_t first) {
    for (size_t i = 0; i < slots.size(); ++i) EXPECT_EQ(slots[i], first + i) << "operation " << i;
}

TEST(InterfaceOrder, InputFiler) {
    ExpectConsecutive({ReadSlot<std::wstring, const std::wstring&>(), ReadSlot<char>(), ReadSlot<double>(),
                       ReadSlot<float>(), ReadSlot<bool>(), ReadSlot<uint8_t>(), ReadSlot<uint16_t>(),
                       ReadSlot<int16_t>(), ReadSlot<uint64_t>(), ReadSlot<uint32_t>(), ReadSlot<int32_t>(),
                       SlotOf(&hx::IInFilerTagged::BeginGroup), SlotOf(&hx::IInFilerTagged::EndGroup),
                       SlotOf(&hx::IInFilerTagged::ExtractGroup)},
                      kBehindDestructor);
}

TEST(InterfaceOrder, OutputFiler) {
    ExpectConsecutive(
        {WriteSlot<char>(), WriteSlot<std::wstring_view>(), WriteSlot<double>(), WriteSlot<float>(),
         WriteSlot<bool>(), WriteSlot<uint8_t>(), WriteSlot<uint16_t>(), WriteSlot<int16_t>(),
         WriteSlot<uint64_t>(), WriteSlot<uint32_t>(), WriteSlot<int32_t>(),
         SlotOf(&hx::IOutFilerTagged::AddComment), SlotOf(&hx::IOutFilerTagged::BeginGroup),
         SlotOf(&hx::IOutFilerTagged::EndGroup), SlotOf(&hx::IOutFilerTagged::InsertDocument)},
        kBehindDestructor);
}

template <class Value, class Fallback = Value>
size_t GetSlot() {
    using Get = bool (Key::*)(Value&, Fallback) const;
    return SlotOf(static_cast<Get>(&Key::Get));
}

template <class Value>
size_t SetSlot() {
    using Set = bool (Key::*)(Value) const;
    return SlotOf(static_cast<Set>(&Key::Set));
}

TEST(InterfaceOrder, RegistryKeyElement) {
    ExpectConsecutive({GetSlot<std::wstring, const std::wstring&>(),
                       GetSlot<char>(),
                       GetSlot<double>(),
                       GetSlot<float>(),
                       GetSlot<bool>(),
                       GetSlot<uint8_t>(),
                       GetSlot<uint16_t>(),
                       GetSlot<int16_t>(),
                       GetSlot<uint32_t>(),
                       GetSlot<int32_t>(),
                       SetSlot<std::wstring_view>(),
                       SetSlot<char>(),
                       SetSlot<double>(),
                       SetSlot<float>(),
                       SetSlot<bool>(),
                       SetSlot<uint8_t>(),
                       SetSlot<uint16_t>(),
                       SetSlot<int16_t>(),
                       SetSlot<uint32_t>(),
                       SetSlot<int32_t>(),
                       SlotOf(&Key::GetType),
                       SlotOf(&Key::GetCategory),
                       SlotOf(&Key::GetDescription),
                       SlotOf(&Key::GetFullPath),
                       SlotOf(&Key::GetKeyGroup)},
                      0);
    // Nothing stands in front, so the destructor comes last.
    static_assert(std::has_virtual_destructor_v<Key> && sizeof(Key) == sizeof(void*));
}

TEST(InterfaceOrder, Errors) {
    ExpectConsecutive(
        {SlotOf(&hx::MDynObject::GetDynClass), SlotOf(&hx::MDynObject::OnDynObject),
         SlotOf(&hx::MDynObject::Clone), SlotOf(&hx::MDynObject::CreateNew), SlotOf(&hx::MError::Read),
         SlotOf(&hx::MError::Write), SlotOf(&hx::MError::GetMessage), SlotOf(&hx::MError::GetDescription)},
        kBehindDestructor);
}

TEST(InterfaceOrder, Logging) {
    ExpectConsecutive({SlotOf(&hx::MLoggingDevice::WriteHeader), SlotOf(&hx::MLoggingDevice::Write)},
                      kBehindDestructor);
    using Folders = hx::MSpecialFolderImplementation;
    ExpectConsecutive(
        {SlotOf(&Folders::GetAllUsersApplicationDataFolder), SlotOf(&Folders::GetUserApplicationDataFolder),
         SlotOf(&Folders::GetProgramFilesSubfolder), SlotOf(&Folders::GetProgramFilesFolder),
         SlotOf(&Folders::GetSharedComponentsInstallationFolder),
         SlotOf(&Folders::GetCommonProgramFilesFolder), SlotOf(&Folders::GetLogFolder),
         SlotOf(&Folders::GetTempFolder)},
        0);
}

TEST(InterfaceOrder, RecordsAndComponentInterfaces) {
    using hx::MHXConnectionSettings;
    ExpectConsecutive(
        {SlotOf(&MHXConnectionSettings::ReadTagged), SlotOf(&MHXConnectionSettings::WriteTagged)}, 0);
    using Scanner = hx::MCommonScannerDeviceProperties;
    for (const auto& slots : {
             std::pair{SlotOf(&hx::MCommonDriverProperties::ReadTagged),
                       SlotOf(&hx::MCommonDriverProperties::WriteTagged)},
             std::pair{SlotOf(&hx::MButtonProperties::ReadTagged),
                       SlotOf(&hx::MButtonProperties::WriteTagged)},
             std::pair{SlotOf(&Scanner::ReadTagged), SlotOf(&Scanner::WriteTagged)},
         }) {
        ExpectConsecutive({slots.first, slots.second}, 0);
    }
    EXPECT_EQ(SlotOf(&Scanner::DisablePowered), 2 + kBehindDestructor);
    constexpr size_t kBehindUnknown = 3;
    ExpectConsecutive(
        {SlotOf(&IXmlBstrSerializable::ReadXmlBstr), SlotOf(&IXmlBstrSerializable::WriteXmlBstr)},
        kBehindUnknown);
    EXPECT_EQ(SlotOf(&IProfileSettingsFactory::CreateSettingsObject), kBehindUnknown);
    EXPECT_EQ(SlotOf(&IGetPointer::GetPointer), kBehindUnknown);
    constexpr size_t kBehindDispatch = 7;
    ExpectConsecutive({SlotOf(&ITriggerSource::SetMaximumTriggerFrequency),
                       SlotOf(&ITriggerSource::SetMinimumTriggerFrequency)},
                      kBehindDispatch);
    static_assert(sizeof(ICoMHXConnSettings) == sizeof(void*) &&
                  sizeof(ICoMHXMeasSettings) == sizeof(void*) &&
                  sizeof(IXmlBstrSerializable) == sizeof(void*));
    static_assert(!std::has_virtual_destructor_v<IXmlBstrSerializable> &&
                  !std::has_virtual_destructor_v<IProfileSettingsFactory> &&
                  !std::has_virtual_destructor_v<MHXConnectionSettings>);
}

template <class Settings>
void ExpectSettingsOrder() {
    ExpectConsecutive({SlotOf(&Settings::SetStrict), SlotOf(&Settings::IsStrict),
                       SlotOf(&Settings::ReadTagged), SlotOf(&Settings::WriteTagged)},
                      0);
    static_assert(!std::has_virtual_destructor_v<Settings>);
}

TEST(InterfaceOrder, SettingsRecords) {
    ExpectSettingsOrder<hx::MHXMeasurementSettings>();
    ExpectSettingsOrder<hx::ZRDMeasurementSettings>();
    using hx::MLaserProfileSettings;
    ExpectConsecutive(
        {SlotOf(&MLaserProfileSettings::ReadTagged), SlotOf(&MLaserProfileSettings::WriteTagged)},
        kBehindDestructor);
    static_assert(std::has_virtual_destructor_v<MLaserProfileSettings>);
}

}  // namespace
