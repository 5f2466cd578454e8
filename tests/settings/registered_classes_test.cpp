// Every source tells of the classes it defines.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/errors/MDiagnosticsRegistry.h"
#include "platform/system/utf8.h"
#include "settings/inventory/RecordInventory.h"

namespace {

class Listener : public hx::MDiagnosticsRegistryImplementation {
public:
    using At = const hx::MErrorLocation&;
    Listener() { hx::SetDiagnosticsRegistry(this); }
    ~Listener() override { hx::SetDiagnosticsRegistry(nullptr); }
    void OnClass(const char* name) override { classes.insert(name); }
    void OnLocation(const char*, const char*) override {}
    void OnRootError(At, std::wstring_view) override {}
    void OnCascadeError(At, std::wstring_view) override {}
    void OnDismissedError(At, std::wstring_view) override {}
    void OnReturnedError(At, HRESULT) override {}
    void OnException(At, const hx::MException&, int32_t) override {}

    std::set<std::string> classes;
};

TEST(RegisteredClasses, AreAllRecordsAndWhatBelongsToThem) {
    const Listener listener;
    for (const hx::InventoryRow& row : hx::RecordInventory()) {
        const std::string name = hx::ToUtf8(row.type->name);
        EXPECT_TRUE(listener.classes.contains(name)) << name;
    }
    for (const char* const name : {"FrequencySelectionHelper",
                                   "IScannerDynamicSettings",
                                   "InputStream",
                                   "LastReadStatusHelper",
                                   "MDeviceBase",
                                   "MGlobalScanningSettings",
                                   "MHXMeasurementSettingsConverter",
                                   "MLaserProfileSettingsList",
                                   "MeasurementAreaHX",
                                   "MeasurementAreaZrd",
                                   "OutputStream",
                                   "SettingsObjectBase",
                                   "Streamable",
                                   "StreamableVector",
                                   "TInputStream",
                                   "TOutputStream",
                                   "TStreamable",
                                   "XMLInputStream",
                                   "XMLOutputStream",
                                   "XMLStreamBase",
                                   "ZRDMeasurementSettingsConverter"}) {
        EXPECT_TRUE(listener.classes.contains(name)) << name;
    }
}

}  // namespace
