// The component library as a host finds it: by class, through its entry points.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

#include "platform/com/comptr.h"
#include "platform/com/loader.h"

// Every test ends with the library gone again.
class ComponentLibrary : public testing::Test {
protected:
    static const std::string& Path() {
        static const std::string path = std::string(HX_BIN_DIR) + "/HXScannerCtrls.so";
        return path;
    }

    static bool IsLoaded() {
        void* handle = dlopen(Path().c_str(), RTLD_NOW | RTLD_NOLOAD);
        if (handle != nullptr) dlclose(handle);
        return handle != nullptr;
    }

    // Run by hand, too, the tests leave the machine's folders and stores alone.
    static void SetUpTestSuite() {
        const std::string build = std::string(HX_BIN_DIR) + "/..";
        setenv("HX_DATA", (build + "/data").c_str(), 0);
        setenv("HX_REGISTRY", (build + "/registry").c_str(), 0);
    }

    void TearDown() override {
        CoFreeUnusedLibraries();
        EXPECT_FALSE(IsLoaded()) << "something of the library is still alive";
    }

    template <class I>
    static hx::ComPtr<I> Create(REFCLSID clsid) {
        hx::ComPtr<I> object;
        EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<I>(), object.put_void()),
                  S_OK);
        return object;
    }
};
