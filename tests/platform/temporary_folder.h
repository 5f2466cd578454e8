// A folder of a test's own, gone with the test.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "hx_test_XXXXXX").string();
        EXPECT_NE(mkdtemp(pattern.data()), nullptr);
        m_path = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }

    const std::filesystem::path& path() const { return m_path; }

    std::filesystem::path Write(const std::string& name, std::string_view bytes) const {
        std::ofstream file(m_path / name, std::ios::binary);
        file << bytes;
        return m_path / name;
    }

private:
    std::filesystem::path m_path;
};
