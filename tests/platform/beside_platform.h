// A test beside a platform library of its own: the folder that programs are built into is every test's.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/platform/temporary_folder.h"

// Begins the calling test anew in a process that has a copy of the platform library loaded, out of a folder
// with that table of classes in it; `body` runs there.
template <class Body>
void BesideThePlatformLibrary(std::string_view table, Body body) {
    if (std::getenv("HX_TEST_IS_BESIDE")) return body();
    const TemporaryFolder folder;
    std::filesystem::copy(HX_BIN_DIR "/libhxplatform.so.4", folder.path());
    folder.Write("test.classes", table);
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string command = "HX_TEST_IS_BESIDE=1 LD_LIBRARY_PATH='" + folder.path().string() + "' '" +
                                std::filesystem::read_symlink("/proc/self/exe").string() +
                                "' --gtest_filter=" + test.test_suite_name() + "." + test.name();
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
}
