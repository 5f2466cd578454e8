// hxregister [-u] [LIBRARY...]: registers component libraries, or unregisters them; without one, those of
// this installation. For the scripts of packages and for administrators. It goes on behind a library that
// fails, whose reason goes to standard error. Exit 0 all done, 1 not all, 2 usage.
#include <exception>
#include <iostream>
#include <string_view>

#include "apps/hosting/ComponentLibraries.h"
#include "platform/system/utf8.h"

namespace {

constexpr char kUsage[] =
    "usage: hxregister [-u] [LIBRARY...]\n"
    "Registers component libraries for all users; without a LIBRARY, those of this installation.\n"
    "  -u, --unregister   unregisters them\n"
    "  -h, --help         prints this\n";

enum Exit : int { kDone = 0, kFailed = 1, kWrongUsage = 2 };

void Tell(std::wstring_view reason) {
    std::cerr << "hxregister: " << hx::ToUtf8(reason) << '\n';
}

// Called within the registry.
void TellReport(const hx::RegistryReport& report) {
    try {
        Tell(L"the registry's store " + report.store + L" cannot be used: " + report.reason);
        if (!report.set_aside.empty()) Tell(L"it was set aside as " + report.set_aside);
    } catch (...) {
        // Without memory the report is lost.
    }
}

int Run(int argc, char** argv) {
    hx::RegistrationAction action = hx::RegistrationAction::kRegister;
    std::vector<std::wstring> libraries;
    bool takes_options = true;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (takes_options && argument == "--") {
            takes_options = false;
        } else if (takes_options && (argument == "-u" || argument == "--unregister")) {
            action = hx::RegistrationAction::kUnregister;
        } else if (takes_options && (argument == "-h" || argument == "--help")) {
            std::cout << kUsage;
            return kDone;
        } else if (takes_options && argument.starts_with('-')) {
            std::cerr << "hxregister: no option " << argument << '\n' << kUsage;
            return kWrongUsage;
        } else if (auto library = hx::FromUtf8(argument)) {
            libraries.push_back(*std::move(library));
        } else {
            std::cerr << "hxregister: no UTF-8: " << argument << '\n';
            return kWrongUsage;
        }
    }
    if (libraries.empty()) libraries = hosting::ComponentLibraries();

    hx::SetRegistryReportSink(&TellReport);
    int exit = kDone;
    for (const std::wstring& library : libraries) {
        const hosting::RegistrationAnswer answer = hosting::RunRegistration(action, library);
        if (SUCCEEDED(answer.result)) continue;
        Tell(answer.reason);
        exit = kFailed;
    }
    // Closed, the store is whole in its one file, which users read who may make none beside it.
    hx::SetRegistry(nullptr);
    return exit;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "hxregister: " << error.what() << '\n';
    }
    return kFailed;
}
