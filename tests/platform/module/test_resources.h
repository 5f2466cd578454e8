// The one function of libhx_test_resources.so: what the library knows of itself.
#pragma once

#include "platform/module/module.h"

struct TestResources {
    hx::ModuleHandle module;
    hx::ModuleVersion version;
};

// Exported as "TestResourcesOf". A file name that is not null is given to the library first.
using TestResourcesFunction = void (*)(const wchar_t* given_file_name, TestResources* resources);
