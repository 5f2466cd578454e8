// The well-known folders, as modules ask for them.
#include "core/errors/MErrorLocation.h"
#include "core/log/MSpecialFolderImplementationWindows.h"
#include "tests/core/log/log_fixture.h"

namespace {

class SpecialFolderNames : public LogTest {
protected:
    ~SpecialFolderNames() override {
        for (const char* name : {"TMPDIR", "XDG_DATA_HOME"}) unsetenv(name);
    }
    // The codes of what the call raises.
    template <class Call>
    static std::wstring Raised(Call call) {
        try {
            call();
        } catch (const hx::MException& exception) {
            return hx::ErrorCodesText(exception);
        }
        return L"nothing";
    }
};

TEST_F(SpecialFolderNames, AreJoinedWithExactlyOneSeparator) {
    setenv("XDG_DATA_HOME", "/home/me/data", 1);
    setenv("TMPDIR", m_folder.path().c_str(), 1);
    const hx::MSpecialFolderImplementation& folders = hx::SpecialFolders();
    const std::wstring data = hx::FromUtf8(m_folder.path().native()).value();
    for (const std::wstring end : {L"", L"/"}) {
        setenv("HX_DATA", hx::ToUtf8(data + end).c_str(), 1);
        struct Row {
            std::wstring found;
            std::wstring expected;
        };
        const Row rows[] = {
            {folders.GetAllUsersApplicationDataFolder(), data},
            {folders.GetUserApplicationDataFolder(), L"/home/me/data"},
            {folders.GetProgramFilesFolder(), L"/opt"},
            {folders.GetProgramFilesSubfolder(L"Orvel/X"), L"/opt/Orvel/X/"},
            {folders.GetCommonProgramFilesFolder(), L"/usr/lib"},
            {folders.GetSharedComponentsInstallationFolder(L"Orvel", false), L"/usr/lib/Orvel/"},
            {folders.GetSharedComponentsInstallationFolder(L"Orvel/", true), L"/usr/lib32/Orvel/"},
            {folders.GetLogFolder(L"Orvel"), data + L"/Orvel/Logs/"},
            {folders.GetTempFolder(), data + L"/"},
        };
        for (const Row& row : rows) EXPECT_EQ(row.found, row.expected);
    }
}

TEST_F(SpecialFolderNames, AreAnErrorWhereTheSystemHasNone) {
    const hx::MSpecialFolderImplementationWindows folders;
    EXPECT_EQ(Raised([&] { folders.GetSpecialFolder(static_cast<hx::SpecialFolder>(4711)); }),
              L"MSpecialFolderImplementationWindows.GetSpecialFolder:SHGetFolderPath "
              L"($errorCode=\"80070057h\", $folderId=\"4711\")");
    setenv("HX_DATA", "/\xFF", 1);
    EXPECT_EQ(Raised([&] { folders.GetLogFolder(L"Orvel"); }),
              L"MSpecialFolderImplementationWindows.GetSpecialFolder:SHGetFolderPath "
              L"($errorCode=\"80004005h\", $folderId=\"35\")");
    setenv("TMPDIR", (m_folder.path() / "missing").c_str(), 1);
    EXPECT_EQ(Raised([&] { folders.GetTempFolder(); }),
              L"MSpecialFolderImplementationWindows.GetTempFolder:GetTempPathFailure ()");
}

}  // namespace
