// Elements on a registry in memory: what they read and write, and where.
#include <gtest/gtest.h>

#include <limits>

#include "core/keys/MRegistryKeyElementBase.h"
#include "core/keys/MRegistryKeyLib.h"
#include "tests/memory_registry.h"

namespace {

using namespace Orvel::RegistryKeys;

const IRegistryKeyElementBase& Key(uint32_t id) {
    return MRegistryKeyLib::GetRegistryKey(id);
}

RegistryKeyRow Row(uint32_t root, uint8_t flags) {
    return {0, {root, L"Path", L"Company"}, L"Value", kInteger0, 0, 0, flags, L"Test: a key []"};
}

class RegistryKeyAccess : public WithMemoryRegistry {
protected:
    template <class T>
    void ExpectKept(uint32_t id, const T& value, const T& other) {
        const IRegistryKeyElementBase& key = Key(id);
        T read = value;
        EXPECT_FALSE(key.Get(read, other));
        EXPECT_EQ(read, other) << "the fallback of a value that is missing";
        EXPECT_TRUE(key.Set(value));
        EXPECT_TRUE(key.Get(read, other));
        EXPECT_EQ(read, value);
        m_registry->DeleteValue(kMachineRoot, L"Software\\Orvel\\HXAPI4\\Logging",
                                L"DynamicSettingsMaxBackups");
    }
};

TEST_F(RegistryKeyAccess, EveryTypeIsKept) {
    ExpectKept<std::wstring>(136, L"\x1F600 text", L"");
    ExpectKept<char>(136, static_cast<char>(0x80), 'x');
    ExpectKept<double>(136, -1.25e-300, 1);
    ExpectKept<float>(136, 0.1f, 1);
    ExpectKept<bool>(136, true, false);
    ExpectKept<uint8_t>(136, 255, 1);
    ExpectKept<uint16_t>(136, 65535, 1);
    ExpectKept<int16_t>(136, -32768, 1);
    ExpectKept<uint32_t>(136, 0xFFFFFFFF, 1);
    ExpectKept<int32_t>(136, std::numeric_limits<int32_t>::min(), 1);
}

TEST_F(RegistryKeyAccess, ValuesLieInTheRegistryTypeOfTheAccessor) {
    const std::wstring key = L"software\\orvel\\hxapi4\\debug";
    EXPECT_TRUE(Key(79).Set(true));
    EXPECT_EQ(Stored(kMachineRoot, key, L"allowhardwaredialoggaindropdown"), hx::RegistryValue(1u));
    EXPECT_TRUE(Key(79).Set(L"a literal is no boolean"));
    EXPECT_EQ(Stored(kMachineRoot, key, L"AllowHardwareDialogGainDropDown"),
              hx::RegistryValue(L"a literal is no boolean"));
    bool value = true;
    EXPECT_FALSE(Key(79).Get(value, false));
    EXPECT_FALSE(value) << "text is no boolean";
    EXPECT_TRUE(Key(187).Set(12.5));
    EXPECT_EQ(
        Stored(kMachineRoot, L"Software\\Orvel\\HXAPI4\\Configuration", L"ExternalTriggerGeneratorFrequency"),
        hx::RegistryValue(L"1.25000000000000e+01"));
}

TEST_F(RegistryKeyAccess, ReadingMakesThePathOfAKeyWithTheCreateFlagOnly) {
    bool value = false;
    EXPECT_FALSE(Key(86).Get(value, true));
    EXPECT_FALSE(HasKey(kUserRoot, L"Software"));
    EXPECT_FALSE(Key(87).Get(value, true));
    EXPECT_TRUE(value);
    EXPECT_TRUE(HasKey(kUserRoot, L"Software\\Orvel\\HXTray\\DDS"));
    EXPECT_EQ(Stored(kUserRoot, L"Software\\Orvel\\HXTray\\DDS", L"ShowErrors"), std::nullopt);
}

TEST_F(RegistryKeyAccess, TheDataServicesKeysAreReadBelowItsCompanyAndWrittenBelowTheSuites) {
    const std::wstring service = L"Software\\Wow6432Node\\Romer\\RDS\\General";
    Store(kMachineRoot, service, L"RDS Version", L"7.1");
    std::wstring version;
    EXPECT_TRUE(Key(0).Get(version, L""));
    EXPECT_EQ(version, L"7.1");
    EXPECT_TRUE(Key(0).Set(L"8.0"));
    EXPECT_EQ(Stored(kMachineRoot, L"Software\\Wow6432Node\\Orvel\\RDS\\General", L"RDS Version"),
              hx::RegistryValue(L"8.0"));
    EXPECT_EQ(Stored(kMachineRoot, service, L"RDS Version"), hx::RegistryValue(L"7.1"));
}

TEST_F(RegistryKeyAccess, TheUsersRootHasNo32BitViewExceptInTheTextOfThePath) {
    const RegistryKeyRow row = Row(kUser, kView32);
    const MRegistryKeyElementBase key(row);
    EXPECT_EQ(key.GetFullPath(), L"HKEY_CURRENT_USER\\Software\\Wow6432Node\\Company\\Path\\Value");
    EXPECT_TRUE(key.Set(int32_t{5}));
    EXPECT_EQ(Stored(kUserRoot, L"Software\\Orvel\\Path", L"Value"), hx::RegistryValue(5u));
    Store(kUserRoot, L"Software\\Company\\Path", L"Value", 6u);
    int32_t value = 0;
    EXPECT_TRUE(key.Get(value, 0));
    EXPECT_EQ(value, 6);
}

TEST_F(RegistryKeyAccess, AnyOtherRootFails) {
    for (const uint32_t root : {2u, 3u, 0xFFFFFFFFu}) {
        const RegistryKeyRow row = Row(root, kCreate);
        const MRegistryKeyElementBase key(row);
        for (const auto store_root : {kUserRoot, kMachineRoot, hx::RegistryRoot::kClassesRoot}) {
            Store(store_root, L"Software\\Company\\Path", L"Value", 6u);
        }
        int32_t value = 0;
        EXPECT_FALSE(key.Get(value, 9));
        EXPECT_EQ(value, 9);
        EXPECT_FALSE(key.Set(int32_t{5}));
        EXPECT_EQ(key.GetFullPath(), L"Company\\Path\\Value");
    }
}

TEST_F(RegistryKeyAccess, AStoreThatRefusesMakesSetFalse) {
    EXPECT_TRUE(Key(87).Set(true));
    RefuseWrites();
    EXPECT_FALSE(Key(87).Set(false));
    bool value = false;
    EXPECT_TRUE(Key(87).Get(value, false) && value) << "its path cannot be made, but is there";
}

}  // namespace
