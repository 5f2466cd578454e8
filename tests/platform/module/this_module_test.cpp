#include "platform/module/this_module.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "platform/module/embedded_scripts.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"
#include "tests/platform/module/test_resources.h"
#include "tests/platform/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

const fs::path kLibrary = fs::path(HX_BIN_DIR) / "libhx_test_resources.so";

// Loads the library, asks it, unloads it.
TestResources Ask(const fs::path& library, const wchar_t* given_file_name) {
    TestResources resources;
    void* const handle = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(handle, nullptr) << dlerror();
    if (!handle) return resources;
    reinterpret_cast<TestResourcesFunction>(dlsym(handle, "TestResourcesOf"))(given_file_name, &resources);
    dlclose(handle);
    EXPECT_EQ(dlopen(library.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr) << "the library stayed";
    return resources;
}

TEST(ThisModule, OfALibraryIsTheFileThatItWasLoadedFrom) {
    const TemporaryFolder folder;
    const fs::path link = folder.path() / "linked.so";
    fs::create_symlink(kLibrary, link);
    const struct {
        fs::path library;
        const wchar_t* given;
        std::wstring file_name;
    } rows[] = {
        {kLibrary, nullptr, *hx::FromUtf8(kLibrary.native())},
        {link, nullptr, *hx::FromUtf8(link.native())},
        {kLibrary, L"/opt/hx/HXScannerCtrls.so", L"/opt/hx/HXScannerCtrls.so"},
    };
    for (const auto& row : rows) {
        TestResources resources = Ask(row.library, row.given);
        ASSERT_TRUE(resources.module);
        EXPECT_EQ(resources.module->FileName(), row.file_name);
        EXPECT_EQ(hx::LoadedResourceModule(row.file_name), resources.module) << "held beyond its library";
        EXPECT_FALSE(resources.module->GetResources().strings.empty());
        resources.module.reset();
        EXPECT_EQ(hx::LoadedResourceModule(row.file_name), nullptr);
    }
}

TEST(ThisModule, OfALibraryLoadedByARelativeNameIsFoundFromAnywhere) {
    const fs::path start = fs::current_path();
    fs::current_path(HX_BIN_DIR);
    void* const handle = dlopen(("./" + kLibrary.filename().native()).c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(handle, nullptr) << dlerror();
    fs::current_path("/");
    TestResources resources;
    reinterpret_cast<TestResourcesFunction>(dlsym(handle, "TestResourcesOf"))(nullptr, &resources);
    dlclose(handle);
    fs::current_path(start);
    EXPECT_TRUE(fs::equivalent(hx::ToUtf8(resources.module->FileName()), kLibrary));
}

TEST(ThisModule, OfAProgramIsTheProgram) {
    EXPECT_EQ(hx::ThisModule()->FileName(), *hx::FromUtf8(fs::read_symlink("/proc/self/exe").native()));
    EXPECT_EQ(hx::ThisModule(), hx::LoadedResourceModule(hx::ThisModule()->FileName()));
}

TEST(ThisModule, HoldsTheScriptsOfTheBuild) {
    std::string script;
    ASSERT_FALSE(hx::ReadFile(fs::path(HX_SOURCE_DIR) / "resources/HXScannerCtrls.rc", script));
    EXPECT_EQ(hx::EmbeddedScript(), script);
    for (const char* const name : {"HXConnSettings.rgs", "HXMeasSettings.rgs", "HXScannerCtrls.rgs",
                                   "HXSettingsFactory.rgs", "toolbox.bmp"}) {
        ASSERT_FALSE(hx::ReadFile(fs::path(HX_SOURCE_DIR) / "resources" / name, script));
        EXPECT_EQ(hx::EmbeddedFile(name), script);
    }
    EXPECT_FALSE(hx::EmbeddedFile("HXSettings.rgs"));
    EXPECT_EQ(hx::ThisModuleVersion().file_description, L"HXScannerCtrls");
    EXPECT_EQ(hx::ThisModuleVersion().product_version, L"" HX_PROJECT_VERSION);
}

TEST(ThisModule, HoldsTheBitmapThatItsControlsAreRegisteredWith) {
    const std::string* const bitmap = hx::ThisModule()->Bitmap(2);
    ASSERT_TRUE(bitmap != nullptr && bitmap->size() > 26);
    uint32_t
        header[6];  // behind "BM": the file's size, reserved, where the picture begins, its width and height
    std::memcpy(header, bitmap->data() + 2, sizeof header);
    EXPECT_EQ(header[0], bitmap->size());
    EXPECT_EQ(header[4], 16u);
    EXPECT_EQ(header[5], 16u);
    EXPECT_EQ(hx::ThisModule()->Bitmap(3), nullptr);
}

TEST(ThisModule, FindsItsSatellitesBesideIt) {
    uint32_t found = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(HX_SOURCE_DIR) / "resources")) {
        const std::string stem = entry.path().stem();
        if (!stem.starts_with("HXScannerCtrls_")) continue;
        hx::ModuleError error;
        const auto satellite = fs::path(HX_BIN_DIR) / (stem + ".dll");
        EXPECT_TRUE(hx::LoadResourceModule(*hx::FromUtf8(satellite.native()), error)) << satellite;
        ++found;
    }
    EXPECT_GE(found, 1u);
}

}  // namespace
