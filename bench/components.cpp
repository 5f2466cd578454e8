// What a host pays for components: for an object of a library that is loaded, and for loading the library.
#include <dlfcn.h>
#include <stdlib.h>

#include <new>

#include "bench/allocations.h"
#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/library_without_start.h"
#include "bench/temporary_store.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/com/class_files.h"
#include "platform/com/comptr.h"
#include "platform/com/loader.h"
#include "platform/system/files.h"
#include "server/CCoMHXConnSettings.h"
#include "server/CCoMHXMeasSettings.h"
#include "server/CCoMHXSettingsFactory.h"

namespace hx::bench {
namespace {

constexpr int kRuns = 1000;
constexpr double kCreationLimit = 2e-6, kStartLimit = 5e-3;

std::filesystem::path LibraryFile() {
    return ThisLibraryFolder() / "HXScannerCtrls.so";
}

void Register(IRegistry& registry, const ClassEntry& entry) {
    const std::wstring key = L"CLSID\\" + GuidToText(entry.clsid);
    const std::pair<std::wstring, std::wstring> values[] = {
        {key + L"\\InprocServer32", entry.library},
        {key + L"\\ProgID", entry.prog_id},
        {key + L"\\VersionIndependentProgID", entry.version_independent_prog_id},
        {entry.prog_id + L"\\CLSID", GuidToText(entry.clsid)},
    };
    for (const auto& [path, value] : values) {
        registry.CreateKey(RegistryRoot::kClassesRoot, path);
        registry.SetValue(RegistryRoot::kClassesRoot, path, L"", value);
    }
}

void Create(const CLSID& clsid) {
    ComPtr<IUnknown> object;
    Expect(SUCCEEDED(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IID_IUnknown, object.put_void())), "HX",
           "create");
}

struct CreatedClass {
    const char* name;
    CLSID clsid;
    size_t size;
    void (*make_directly)();
};

template <class T>
CreatedClass Created(const char* name, const CLSID& clsid) {
    return {name, clsid, sizeof(T), [] { Make<T>(); }};
}

template <class Body>
std::function<void()> Repeated(Body body) {
    return [body] {
        for (int i = 0; i < kRuns; ++i) body();
    };
}

template <class Body>
size_t AllocationsOf(Body body) {
    const size_t before = Allocations();
    body();
    return Allocations() - before;
}

// What C++ offers instead: a function found by its name, and memory for the object.
void FindAndAllocate(void* library, size_t size) {
    Expect(dlsym(library, "DllGetClassObject") != nullptr, "dlsym", "DllGetClassObject");
    ::operator delete(::operator new(size), size);
}

void CompareCreation(Benchmark& benchmark) {
    const TemporaryStore store;
    const std::shared_ptr<IClassLookup> tables = ReadClassFiles(ThisLibraryFolder());
    SetRegistry(store.registry);
    for (const ClassEntry& entry : tables->All()) Register(*store.registry, entry);
    Table table("Creating components",
                "One CoCreateInstance and Release of a component whose library is loaded, its class being "
                "registered in the store on disk, or listed in the text tables that are read once. Beside it "
                "dlsym, new and delete for an object of that size; and the object made and released in C++, "
                "which the limit does not count.",
                {"Class", "Registered", "In text tables", "dlsym, new, delete", "Registered / that",
                 "Object alone", "Rest", "At most", "Met", "Allocations", "Of the object"});
    SetClassLookup(nullptr);
    const std::shared_ptr<IClassLookup> usual = ClassLookup();
    const auto use_registry = [&] { SetClassLookup(usual); };
    Create(CLSID_CoMHXConnSettings);
    void* const library = dlopen(LibraryFile().c_str(), RTLD_NOW | RTLD_NOLOAD);
    Expect(library != nullptr, "HX", LibraryFile());
    const CreatedClass classes[] = {
        Created<CCoMHXSettingsFactory>("settings factory", CLSID_CoMHXSettingsFactory),
        Created<CCoMHXConnSettings>("connection settings", CLSID_CoMHXConnSettings),
        Created<CCoMHXMeasSettings>("measurement settings", CLSID_CoMHXMeasSettings),
    };
    for (const CreatedClass& each : classes) {
        const auto create = [&] { Create(each.clsid); };
        std::vector<double> takes =
            Compete({{"registered", use_registry, Repeated(create)},
                     {"tables", [&] { SetClassLookup(tables); }, Repeated(create)},
                     {"plain", use_registry, Repeated([&] { FindAndAllocate(library, each.size); })},
                     {"object", use_registry, Repeated(each.make_directly)}},
                    benchmark.HowMuch());
        for (double& time : takes) time /= kRuns;
        use_registry();
        create();
        const double rest = takes[0] - takes[3];
        table.Add({each.name, FormatTime(takes[0]), FormatTime(takes[1]), FormatTime(takes[2]),
                   FormatNumber(takes[0] / takes[2], 1), FormatTime(takes[3]), FormatTime(rest),
                   FormatTime(kCreationLimit), rest <= kCreationLimit ? "yes" : "no",
                   std::to_string(AllocationsOf(create)), std::to_string(AllocationsOf(each.make_directly))});
    }
    dlclose(library);
    benchmark.report.Add(table.Markdown());
    SetClassLookup(nullptr);
    SetRegistry(MakeMemoryRegistry());
}

// As a host does that loads it itself: until the first class object, and until it is gone again.
void LoadOnce(const std::filesystem::path& file, bool starts) {
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    Expect(library != nullptr, "dlopen", file);
    if (starts) {
        const auto get_class_object =
            reinterpret_cast<HRESULT (*)(REFCLSID, REFIID, void**)>(dlsym(library, "DllGetClassObject"));
        const auto can_unload_now = reinterpret_cast<HRESULT (*)()>(dlsym(library, "DllCanUnloadNow"));
        {
            ComPtr<IClassFactory> factory;
            Expect(get_class_object(CLSID_CoMHXConnSettings, IID_IClassFactory, factory.put_void()) == S_OK,
                   "HX", "class object");
        }
        Expect(can_unload_now() == S_OK, "HX", "unload");
    }
    dlclose(library);
}

void ExpectUnloaded(const std::filesystem::path& file) {
    Expect(dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD) == nullptr, "dlclose", file);
}

void CompareLoading(Benchmark& benchmark) {
    CoFreeUnusedLibraries();
    ExpectUnloaded(LibraryFile());
    const TemporaryStore store;
    const std::filesystem::path without_start = store.Folder() / "without_start.so";
    // Its log, too, goes where nothing else is.
    setenv("HX_DATA", store.Folder().c_str(), 1);
    SetRegistry(store.registry);
    LoadOnce(LibraryFile(), true);  // which enters the values that are missing
    WriteLibraryWithoutStart(LibraryFile(), without_start);
    LoadOnce(without_start, false);
    ExpectUnloaded(without_start);
    ExpectUnloaded(LibraryFile());
    const auto before = store.registry->Stamp(RegistryRoot::kLocalMachine);
    const auto nothing = [] {};
    const std::vector<double> takes =
        Compete({{"dynamic loader", nothing, [&] { LoadOnce(without_start, false); }},
                 {"with start", nothing, [&] { LoadOnce(LibraryFile(), true); }},
                 {"with start and store", [&] { SetRegistry(store.OpenAnew()); },
                  [&] { LoadOnce(LibraryFile(), true); }}},
                benchmark.HowMuch());
    const bool is_unchanged = before && store.registry->Stamp(RegistryRoot::kLocalMachine) == before;
    Table table(
        "Loading the module",
        "From dlopen to the first class object, and until the library is unloaded again; beside it the "
        "same library without what it does at its start and end: the log, the values that configure "
        "it, the version resource. The configuration is there already.",
        {"What", "Takes", "Own work", "At most", "Met", "Registry written"});
    const auto add = [&](const char* what, double time) {
        const double own = time - takes[0];
        table.Add({what, FormatTime(time), FormatTime(own), FormatTime(kStartLimit),
                   own <= kStartLimit ? "yes" : "no", is_unchanged ? "no" : "yes"});
    };
    table.Add({"the dynamic loader alone", FormatTime(takes[0]), "-", "-", "-", "-"});
    add("the store being open", takes[1]);
    add("opening the store", takes[2]);
    benchmark.report.Add(table.Markdown());
    SetRegistry(MakeMemoryRegistry());
}

}  // namespace

void CompareComponents(Benchmark& benchmark) {
    CompareCreation(benchmark);
    CompareLoading(benchmark);
}

}  // namespace hx::bench
