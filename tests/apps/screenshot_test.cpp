// hxctl screenshot: a picture comes out, in the size that was asked for.
#include "tests/apps/hxctl_fixture.h"

namespace {

class Screenshot : public Hxctl {
protected:
    // Big-endian, where PNG files have their width (16) and height (20).
    uint32_t NumberAt(const std::string& file, size_t place) const {
        uint32_t number = 0;
        const std::string bytes = Read(file);
        for (size_t i = place; i < place + 4 && i < bytes.size(); ++i) {
            number = number << 8 | static_cast<unsigned char>(bytes[i]);
        }
        return number;
    }
};

TEST_F(Screenshot, PagesAndThePreviewHavePictures) {
    const std::string told = Run("screenshot attic out.png").err;
    std::istringstream pages(told.substr(told.find("there are") + sizeof("there are")));
    size_t count = 0;
    for (std::string page; pages >> page; ++count) {
        const std::string file = page + ".png";
        const Answer answer = Run("screenshot " + page + " " + file +
                                  " --width 700 --height 500 --scale 2 --dark --locale ja-JP");
        EXPECT_EQ(answer.exit, 0) << answer.err;
        EXPECT_EQ(answer.out, file + "\n");
        EXPECT_EQ(Read(file).substr(1, 3), "PNG");
        EXPECT_EQ(NumberAt(file, 16), 1400u);
        EXPECT_EQ(NumberAt(file, 20), 1000u);
    }
    EXPECT_GT(count, 1u);
}

// And what the page said meanwhile: there is a picture all the same.
TEST_F(Screenshot, AScriptThatFailsIsTold) {
    const Answer answer =
        Run("screenshot measurement out.png --scale 2 --script -", "jump\nresize 16384 16384\nselect\n");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find("no command \"jump\""), std::string::npos) << answer.err;
    EXPECT_NE(answer.err.find("line 2: the picture would be too large"), std::string::npos) << answer.err;
    EXPECT_EQ(Read("out.png").substr(1, 3), "PNG");
    const Answer told = Run("screenshot diagnostics said.png --properties -", "no document");
    EXPECT_EQ(told.exit, 0);
    EXPECT_EQ(told.err, "hxctl: the page says: An internal error occurred.\n");
    EXPECT_EQ(Read("said.png").substr(1, 3), "PNG");
}

TEST_F(Screenshot, WhatCannotBeDoneIsSaid) {
    const struct {
        const char* arguments;
        int exit;
        const char* reason;
    } rows[] = {{"attic out.png", 2, "no page \"attic\""},
                {"measurement out.png --script nowhere", 1, "cannot be read"},
                {"measurement out.png --script ''", 1, "cannot be read"},
                {"measurement out.png --exposure 100", 2, "measurement takes no --exposure"},
                {"diagnostics out.png --preset x", 2, "diagnostics takes no --preset"},
                {"measurement out.png --properties nowhere", 1, "nowhere: No such file"},
                {"measurement out.png --properties - --script -", 2, "cannot both be standard input"},
                {"preview out.png --script -", 2, "preview takes no --script"},
                {"preview out.png --locale xx-nothing", 2, "no locale"},
                {"preview out.png --surface velvet", 2, "no surface"},
                {"preview out.png --scale 0.99", 2, "--scale"},
                {"preview out.png --scale NaN", 2, "--scale"},
                {"preview out.png --width 4096 --height 4096 --scale 4", 2, "too large"},
                {"preview \"\"", 1, "cannot be written"},
                {"preview no/such/folder/out.png", 1, "cannot be written"}};
    for (const auto& row : rows) {
        const Answer answer = Run(std::string("screenshot ") + row.arguments);
        EXPECT_EQ(answer.exit, row.exit) << row.arguments;
        EXPECT_NE(answer.err.find(row.reason), std::string::npos) << answer.err;
        EXPECT_EQ(Read("out.png"), "");
    }
}

}  // namespace
