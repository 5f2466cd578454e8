// The measurement settings object from inside: what it keeps, and what it tells the log.
#include <cmath>

#include "core/log/MModuleDiagnostics.h"
#include "platform/com/errorinfo.h"
#include "server/CCoMHXMeasSettings.h"
#include "tests/core/log/log_fixture.h"

namespace {

class MeasurementObject : public LogTest {
protected:
    MeasurementObject() { Configure({{L"ClearLogFileUponStart", 0u}}); }

    // The entries of the module's log, without their times.
    std::vector<std::string> Entries() const {
        const std::string text = Text("Mod.log");
        std::vector<std::string> entries;
        for (size_t at = text.find("\n\t[Level]"); at != std::string::npos;) {
            const size_t next = text.find("\n\t[Level]", at + 1);
            entries.push_back(text.substr(at, next - at));
            at = next;
        }
        return entries;
    }

    const hx::ComPtr<hx::CCoMHXMeasSettings> m_object = hx::Make<hx::CCoMHXMeasSettings>();
};

TEST_F(MeasurementObject, KeepsTheFrequenciesForWhoeverComesByItsPointer) {
    void* address = nullptr;
    EXPECT_EQ(m_object->GetPointer(nullptr), E_POINTER);
    ASSERT_EQ(m_object->GetPointer(&address), S_OK);
    const auto& object = *static_cast<const hx::CCoMHXMeasSettings*>(address);
    EXPECT_TRUE(std::isnan(object.MaximumTriggerFrequency()));
    EXPECT_TRUE(std::isnan(object.MinimumTriggerFrequency()));
    EXPECT_EQ(m_object->SetMaximumTriggerFrequency(-5.0), S_OK);
    hx::Variant text(std::wstring_view(L"12.5"));
    DISPPARAMS arguments{const_cast<VARIANT*>(&text.get()), nullptr, 1, 0};
    EXPECT_EQ(m_object->Invoke(4, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(object.MaximumTriggerFrequency(), -5.0);
    EXPECT_EQ(object.MinimumTriggerFrequency(), 12.5);
    // Whatever they are.
    constexpr double kEnds[][2] = {{0, 7}, {9, 3}, {NAN, -INFINITY}, {INFINITY, NAN}};
    for (const auto& [minimum, maximum] : kEnds) {
        EXPECT_EQ(m_object->SetMaximumTriggerFrequency(maximum), S_OK);
        EXPECT_EQ(m_object->SetMinimumTriggerFrequency(minimum), S_OK);
        EXPECT_EQ(std::to_string(object.MaximumTriggerFrequency()), std::to_string(maximum));
        EXPECT_EQ(std::to_string(object.MinimumTriggerFrequency()), std::to_string(minimum));
    }
    EXPECT_EQ(object.Settings().Version, 0);
}

TEST_F(MeasurementObject, LogsAnExceptionTwice) {
    const hx::MModuleDiagnostics diagnostics(L"Mod", hx::kLoggingKeyPath, [] { return hx::ModuleVersion{}; });
    EXPECT_EQ(m_object->ReadXmlBstr(nullptr), E_FAIL);
    EXPECT_TRUE(Entries().empty()) << "a failure without an exception";
    hx::Bstr own;
    ASSERT_EQ(m_object->WriteXmlBstr(own.put()), S_OK);
    EXPECT_EQ(m_object->ReadXmlBstr(own.get()), E_FAIL);
    const std::vector<std::string> entries = Entries();
    ASSERT_EQ(entries.size(), 2u);
    const std::string cause = "MDeviceSettingsList.ReadImpTagged:Read ($category=\"DeviceType\")";
    EXPECT_TRUE(Contains(entries[0],
                         "[File]\t\t=\tCCoMHXMeasSettings\n\t[Line]\t\t=\t63\n"
                         "\t[Location]\t=\tReadXmlBstr\n"));
    EXPECT_TRUE(Contains(entries[0], "An exception of kind 10 ended in object 0x"));
    EXPECT_TRUE(Contains(entries[0], "\nError codes:\n" + cause));
    EXPECT_TRUE(Contains(entries[1], "\nError codes:\nCCoMHXMeasSettings.ReadXmlBstr ()\n" + cause));
    SetErrorInfo(0, nullptr);
}

}  // namespace
