// The tool as a person runs it: arguments and input in, output, reason and exit code out. Each test has a
// folder of its own, which the tool runs in and keeps its data in.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class Hxctl : public testing::Test {
protected:
    struct Answer {
        int exit;
        std::string out;
        std::string err;
    };

    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "hxctl_XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        m_folder = pattern;
        setenv("HX_DATA", (m_folder / "data").c_str(), 1);
        setenv("HX_REGISTRY", (m_folder / "registry").c_str(), 1);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(m_folder / name, std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(m_folder / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    // Runs the tool in the folder, with `input` as its standard input; or another program of the build,
    // with `environment` as for env(1).
    Answer Run(const std::string& arguments, const std::string& input = {}) const {
        return RunProgram("hxctl", arguments, input);
    }
    Answer RunProgram(const std::string& name, const std::string& arguments, const std::string& input = {},
                      const std::string& environment = {}) const {
        Write("stdin", input);
        const std::string command = "cd '" + m_folder.string() + "' && env " + environment + " '" +
                                    HX_BIN_DIR + "/" + name + "' " + arguments + " <stdin >stdout 2>stderr";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read("stdout"), Read("stderr")};
    }

    struct Row {
        const char* arguments;
        std::string input;
        int exit;
        std::string out;
        std::string err;
    };
    template <size_t N>
    void Check(const Row (&rows)[N]) const {
        for (const Row& row : rows) {
            SCOPED_TRACE(std::string(row.arguments) + " < " + row.input);
            const Answer answer = Run(row.arguments, row.input);
            EXPECT_EQ(answer.exit, row.exit);
            EXPECT_EQ(answer.out, row.out);
            EXPECT_EQ(answer.err, row.err);
        }
    }

    std::filesystem::path m_folder;
};
