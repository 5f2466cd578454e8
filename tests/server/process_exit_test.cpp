// A process may exit while other threads of it are in the library: they run on until the process is gone.
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "hxapi/IXmlBstrSerializable.h"
#include "tests/platform/temporary_folder.h"
#include "tests/server/component_library.h"

namespace {

class ProcessExit : public ComponentLibrary {};

[[noreturn]] void ExitWithBusyThreads(const std::filesystem::path& folder) {
    constexpr int kThreads = 3;
    constexpr int kCalls = 100;
    setenv("HX_DATA", folder.c_str(), 1);
    setenv("HX_REGISTRY", folder.c_str(), 1);
    hx::ComPtr<IProfileSettingsFactory> factory;
    if (FAILED(CoCreateInstance(CLSID_CoMHXSettingsFactory, nullptr, CLSCTX_INPROC_SERVER,
                                hx::uuid_of<IProfileSettingsFactory>(), factory.put_void()))) {
        _exit(1);
    }
    // The threads outlive this function.
    static IProfileSettingsFactory* const shared = factory.detach();
    static std::atomic<int> calls = 0;
    for (int i = 0; i < kThreads; ++i) {
        std::thread([] {
            while (true) {
                hx::ComPtr<IXmlBstrSerializable> settings;
                if (SUCCEEDED(shared->CreateSettingsObject(ScannerConnectionSettings, settings.put()))) {
                    settings->ReadXmlBstr(nullptr);
                    ++calls;
                }
            }
        }).detach();
    }
    while (calls < kCalls) std::this_thread::yield();
    std::exit(0);
}

TEST_F(ProcessExit, DoesNotWaitForTheThreadsInTheLibrary) {
    constexpr int kProcesses = 40;
    const TemporaryFolder folder;
    for (int i = 0; i < kProcesses; ++i) {
        const pid_t child = fork();
        if (child == 0) ExitWithBusyThreads(folder.path());
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0) << "process " << i;
    }
}

}  // namespace
