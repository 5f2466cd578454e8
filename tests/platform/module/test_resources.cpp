#include "tests/platform/module/test_resources.h"

#include "platform/module/this_module.h"

extern "C" __attribute__((visibility("default"))) void TestResourcesOf(const wchar_t* given_file_name,
                                                                       TestResources* resources) {
    if (given_file_name) hx::SetThisModuleFileName(given_file_name);
    resources->module = hx::ThisModule();
    resources->version = hx::ThisModuleVersion();
}
