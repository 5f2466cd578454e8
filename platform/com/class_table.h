// The classes of one component library: a table of rows, and what its DllGetClassObject and DllCanUnloadNow
// answer. Linked into each component library (target hxmodule), never shared: every library counts what is
// alive of it alone.
//     static constexpr hx::ClassRow rows[] = {{CLSID_Thing, L"Acme.Thing.1", ..., &hx::CreateObject<Thing>}};
//     static hx::ModuleClasses classes(rows);
//     STDAPI DllCanUnloadNow() { return classes.CanUnloadNow(); }
// Usable on any thread.
#pragma once

#include <mutex>
#include <span>
#include <vector>

#include "platform/com/boundary.h"
#include "platform/com/implements.h"

namespace hx {

// A member of every object that clients can hold: while one exists, the library stays loaded.
class ModuleLock {
public:
    ModuleLock() noexcept;
    ModuleLock(const ModuleLock&) noexcept : ModuleLock() {}
    ModuleLock& operator=(const ModuleLock&) noexcept { return *this; }
    ~ModuleLock();
};

// Texts live as long as the library; the ones that do not apply are empty, not null.
struct ClassRow {
    CLSID clsid;
    const wchar_t* prog_id;                      // "Vendor.Class.1"
    const wchar_t* version_independent_prog_id;  // "Vendor.Class"
    const wchar_t* name;
    const wchar_t* description;
    const wchar_t* threading_model;  // "Apartment", "Both", ...
    // A new object's `iid` interface, [caller owns]. It may throw.
    HRESULT (*create)(REFIID iid, void** object);
};

// The create function of a class whose constructor needs nothing.
template <class T>
HRESULT CreateObject(REFIID iid, void** object) {
    return Make<T>().query_to(iid, object);
}

class ClassFactory;

class ModuleClasses {
public:
    explicit ModuleClasses(std::span<const ClassRow> rows) noexcept : m_rows(rows) {}
    ModuleClasses(const ModuleClasses&) = delete;
    ModuleClasses& operator=(const ModuleClasses&) = delete;
    ~ModuleClasses();

    std::span<const ClassRow> rows() const { return m_rows; }

    // The class's factory, the same one each time, [caller owns]. `*object` is null on failure: E_POINTER for
    // a null `object`, CLASS_E_CLASSNOTAVAILABLE for an unknown class or for an interface that a factory
    // lacks.
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept;

    // S_OK if no object, no factory in a client's hands and no server lock is left, else S_FALSE.
    HRESULT CanUnloadNow() const noexcept;

private:
    // With m_mutex held. Throws std::bad_alloc.
    ClassFactory& FactoryOf(const ClassRow& row);

    std::span<const ClassRow> m_rows;
    std::mutex m_mutex;
    std::vector<ClassFactory*> m_factories;  // none yet, or one per row; null until asked for
};

}  // namespace hx
