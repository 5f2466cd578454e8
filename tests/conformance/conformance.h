// The component classes as a stranger finds them: registered by their libraries in a registry of the test's
// own, created by what stands there, and their libraries gone after every test.
#pragma once

#include <gtest/gtest.h>

#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"
#include "platform/com/loader.h"
#include "tests/conformance/class_rows.h"

class Conformance : public testing::Test {
public:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void TearDown() override;

    static std::wstring LibraryOf(const std::string& file_name);
    static bool IsLoaded(const std::string& library);
    static bool IsAnyLoaded();

    template <class I = IUnknown>
    static hx::ComPtr<I> Create(REFCLSID clsid) {
        hx::ComPtr<I> object;
        EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<I>(), object.put_void()),
                  S_OK);
        return object;
    }
    static hx::ComPtr<IClassFactory> FactoryOf(REFCLSID clsid) {
        hx::ComPtr<IClassFactory> factory;
        EXPECT_EQ(
            CoGetClassObject(clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.put_void()),
            S_OK);
        return factory;
    }
};

// The count of references, from which nothing is taken and to which nothing is added.
inline ULONG CountOf(IUnknown& object) {
    object.AddRef();
    return object.Release();
}

// What is expected of each class in turn.
template <class Rule>
void ForEachClass(const Rule& rule) {
    for (const ClassPromises& row : AllClasses()) {
        SCOPED_TRACE(testing::PrintToString(row.prog_id));
        rule(row);
    }
}
