// What the class objects do and refuse, and how long they and what they make keep a library loaded.
#include "platform/com/implements.h"
#include "tests/conformance/conformance.h"

namespace {

using hx::ComPtr;

// It only counts, and is to be left alone.
class Outer final : public hx::Implements<Outer, hx::FreeThreaded, IUnknown> {};

TEST_F(Conformance, AClassHasOneFactoryWithNothingElse) {
    ForEachClass([](const ClassPromises& row) {
        const auto factory = FactoryOf(row.clsid);
        ASSERT_TRUE(factory);
        EXPECT_EQ(FactoryOf(row.clsid), factory);
        EXPECT_EQ(factory.as<IUnknown>().as<IClassFactory>(), factory);
        for (const InterfaceRow& each : AllInterfaces()) {
            const bool is_its = each.iid == IID_IUnknown || each.iid == IID_IClassFactory;
            ComPtr<IUnknown> face;
            EXPECT_EQ(factory->QueryInterface(each.iid, face.put_void()), is_its ? S_OK : E_NOINTERFACE)
                << each.name;
            void* out = &out;
            EXPECT_EQ(CoGetClassObject(row.clsid, CLSCTX_INPROC_SERVER, nullptr, each.iid, &out),
                      is_its ? S_OK : CLASS_E_CLASSNOTAVAILABLE)
                << each.name;
            EXPECT_EQ(out, is_its ? face.get() : nullptr);
            if (is_its) face->Release();
        }
        EXPECT_EQ(factory->QueryInterface(IID_IClassFactory, nullptr), E_POINTER);
        EXPECT_EQ(CoGetClassObject(row.clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, nullptr),
                  E_POINTER);
    });
}

TEST_F(Conformance, FactoriesRefuseWhatTheyCannotMakeAndLeaveNothingOfIt) {
    const auto outer = hx::Make<Outer>();
    ForEachClass([&](const ClassPromises& row) {
        const auto factory = FactoryOf(row.clsid);
        ASSERT_TRUE(factory);
        const ULONG before = CountOf(*factory);
        struct {
            IUnknown* outer;
            IID iid;
            HRESULT result;
        } const rows[] = {{outer.get(), IID_IUnknown, CLASS_E_NOAGGREGATION},
                          {outer.get(), IID_NULL, CLASS_E_NOAGGREGATION},
                          {nullptr, IID_IErrorInfo, E_NOINTERFACE},
                          {nullptr, IID_NULL, E_NOINTERFACE}};
        for (const auto& each : rows) {
            void* out = &out;
            EXPECT_EQ(factory->CreateInstance(each.outer, each.iid, &out), each.result);
            EXPECT_EQ(out, nullptr);
            out = &out;
            EXPECT_EQ(CoCreateInstance(row.clsid, each.outer, CLSCTX_INPROC_SERVER, each.iid, &out),
                      each.result);
            EXPECT_EQ(out, nullptr);
        }
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
        EXPECT_EQ(factory->CreateInstance(outer.get(), IID_IUnknown, nullptr), E_POINTER);
        EXPECT_EQ(CountOf(*factory), before);
    });
    EXPECT_EQ(CountOf(*outer), 1u);
}

// A library is loaded as long as a client has a factory, an object or a lock of it, and can come back.
TEST_F(Conformance, LibrariesGoWhenTheyMayAndComeBack) {
    const auto stays = [](const ClassPromises& row, bool expected, const char* why) {
        CoFreeUnusedLibraries();
        EXPECT_EQ(IsLoaded(row.library), expected) << why;
    };
    for (int round = 0; round < 20; ++round) {
        ForEachClass([&](const ClassPromises& row) {
            stays(row, false, "nothing");
            auto factory = FactoryOf(row.clsid);
            stays(row, true, "a factory");
            auto object = Create(row.clsid);
            factory.reset();
            stays(row, true, "an object");
            factory = FactoryOf(row.clsid);
            for (const BOOL lock : {TRUE, BOOL{-1}}) EXPECT_EQ(factory->LockServer(lock), S_OK);
            object.reset();
            factory.reset();
            stays(row, true, "two locks");
            EXPECT_EQ(FactoryOf(row.clsid)->LockServer(FALSE), S_OK);
            stays(row, true, "a lock");
            EXPECT_EQ(FactoryOf(row.clsid)->LockServer(FALSE), S_OK);
            stays(row, false, "nothing");
        });
    }
}

TEST_F(Conformance, AnUnlockTooManyTakesNoLockAway) {
    ForEachClass([](const ClassPromises& row) {
        auto factory = FactoryOf(row.clsid);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(factory->LockServer(FALSE), E_UNEXPECTED);
        EXPECT_EQ(factory->LockServer(TRUE), S_OK);
        factory.reset();
        CoFreeUnusedLibraries();
        EXPECT_TRUE(IsLoaded(row.library));
        EXPECT_EQ(FactoryOf(row.clsid)->LockServer(FALSE), S_OK);
        CoFreeUnusedLibraries();
        EXPECT_FALSE(IsLoaded(row.library));
    });
}

}  // namespace
