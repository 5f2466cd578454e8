// What each component class promises to its clients: where it is registered, its interfaces, its members for
// calls by name. Walked by the tests of the rules that all classes keep.
#pragma once

#include <string>
#include <vector>

#include "platform/com/dispatch.h"

struct InterfaceRow {
    IID iid;
    const char* name;
};

struct ParameterRow {
    const wchar_t* name;  // null for the new value of a property
    VARTYPE type;
};

struct MemberRow {
    DISPID id;
    const wchar_t* name;
    WORD kind;  // DISPATCH_...
    std::vector<ParameterRow> parameters;
    // To well-typed arguments, objects among them being null; a failure comes as DISP_E_EXCEPTION.
    HRESULT answer;
};

struct ClassPromises {
    CLSID clsid;
    const char* library;
    std::wstring prog_id;
    std::wstring version_independent_prog_id;  // empty: none
    std::wstring threading_model;              // empty: none
    std::vector<IID> interfaces;               // beside IUnknown
    std::vector<IID> error_information;        // the interfaces that it vouches for
    IID dispatch;                              // that the members are of
    std::vector<MemberRow> members;
    int creations = 100'000;  // how many show whether something is left of each
};

const std::vector<ClassPromises>& AllClasses();
// Every interface that some class here has, and those that none must have.
const std::vector<InterfaceRow>& AllInterfaces();

bool Has(const ClassPromises& row, REFIID iid);
