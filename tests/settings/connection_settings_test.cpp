#include "settings/connection/MHXConnectionSettings.h"

#include <gtest/gtest.h>

#include "tests/settings/record_text.h"

namespace {

using hx::MHXConnectionSettings;
using namespace std::string_literals;

const wchar_t* const kServer = L"<ServerIP type='string'>1.2.3.4</ServerIP>";
const wchar_t* const kProxy = L"<IsProxy type='bool'>1</IsProxy>";
const wchar_t* const kNoProxy = L"<IsProxy type='bool'>0</IsProxy>";
const wchar_t* const kWiFi = L"<WiFiConnection type='bool'>1</WiFiConnection>";

TEST(ConnectionSettings, EveryVersionIsReadByItsOwnRules) {
    // What the fields hold after reading; before, they are "before", false and true. The defaults are
    // "default", true and false.
    struct Row {
        const char* what;
        std::wstring body;
        bool read;
        const wchar_t* server;
        bool proxy;
        bool wifi;
    };
    const wchar_t* const before = L"before";
    const Row rows[] = {
        {"version 2", Version(2) + kServer + kProxy + kWiFi, true, L"1.2.3.4", true, true},
        {"no wireless link told", Version(2) + kServer + kProxy, true, L"1.2.3.4", true, false},
        {"version 1 leaves the link alone", Version(1) + kServer + kNoProxy + kWiFi, true, L"1.2.3.4", false,
         true},
        {"version 1 without proxy", Version(1) + kServer, true, L"1.2.3.4", false, true},
        {"no version is version 0", kServer + std::wstring(kProxy), true, L"1.2.3.4", true, true},
        {"version 0", Version(0) + kServer + kProxy, true, L"1.2.3.4", true, true},
        {"negative version", Version(-1) + kServer + kProxy, true, L"1.2.3.4", true, true},
        {"no proxy told: off, not the default", Version(2) + kServer + kWiFi, true, L"1.2.3.4", false, true},
        {"newer version", Version(3) + kServer + kProxy + kWiFi, false, before, false, true},
        {"no server", Version(2) + kProxy + kWiFi, false, L"default", true, true},
        {"empty body", L"", false, L"default", false, true},
        {"only a version", Version(2), false, L"default", false, false},
        {"version of another type stops all", L"<Version type='uint'>2</Version>"s + kServer + kProxy, false,
         L"default", false, true},
        {"unreadable version is version 0", L"<Version type='int'>x</Version>"s + kServer + kProxy + kWiFi,
         true, L"1.2.3.4", true, true},
        {"empty server", Version(2) + L"<ServerIP type='string'/>" + kProxy + kWiFi, true, L"", true, true},
        {"server of another type", Version(2) + L"<ServerIP type='int'>1</ServerIP>" + kProxy, false,
         L"default", false, false},
        {"bad proxy", Version(2) + kServer + L"<IsProxy type='bool'>yes</IsProxy>" + kWiFi, true, L"1.2.3.4",
         false, true},
        {"wrong order", Version(2) + kServer + kWiFi + kProxy, true, L"1.2.3.4", false, true},
    };
    MHXConnectionSettings defaults;
    defaults.ServerIP = L"default";
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        MHXConnectionSettings record;
        record.ServerIP = before;
        record.IsProxy = false;
        record.WiFiConnection = true;
        EXPECT_EQ(ReadFrom(row.body, record, defaults), row.read);
        EXPECT_EQ(record.ServerIP, row.server);
        EXPECT_EQ(record.IsProxy, row.proxy);
        EXPECT_EQ(record.WiFiConnection, row.wifi);
    }
}

TEST(ConnectionSettings, AMissingGroupChangesNothing) {
    MHXConnectionSettings record;
    record.ServerIP = L"before";
    record.WiFiConnection = true;
    hx::MInFilerTaggedXml reader(L"<R><S type='string'/></R>", L"R");
    hx::MFilerTaggedPair filer(reader);
    EXPECT_FALSE(record.ReadTagged(filer, L"S", {}));
    EXPECT_TRUE(record.ServerIP == L"before" && record.IsProxy && record.WiFiConnection);
    hx::MFilerTaggedPair none(nullptr, nullptr);
    EXPECT_FALSE(record.WriteTagged(none, L"S"));
}

TEST(ConnectionSettings, WhatIsWrittenIsReadBack) {
    for (const int flags : {0, 1, 2, 3}) {
        MHXConnectionSettings record;
        record.ServerIP = L"<a & b>";
        record.IsProxy = (flags & 1) != 0;
        record.WiFiConnection = (flags & 2) != 0;
        MHXConnectionSettings read;
        EXPECT_TRUE(ReadFrom(Written(record), read));
        EXPECT_EQ(read.ServerIP, record.ServerIP);
        EXPECT_EQ(read.IsProxy, record.IsProxy);
        EXPECT_EQ(read.WiFiConnection, record.WiFiConnection);
    }
}

}  // namespace
