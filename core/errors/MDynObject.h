// Root of the library's dynamically typed objects, and the class descriptors by which their kind is told.
// Kinds are compared by name, since two modules may each have a descriptor of the same class. Any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace hx {

// One static record per class, registered at program start.
class MDynClass {
public:
    // `base` is null for the root. The name is a literal.
    MDynClass(const wchar_t* name, const MDynClass* base);
    MDynClass(const MDynClass&) = delete;
    MDynClass& operator=(const MDynClass&) = delete;

    std::wstring_view Name() const { return m_name; }
    const MDynClass* Base() const { return m_base; }

    // True if this is the class `kind` or derives from it.
    bool IsOfKind(const MDynClass& kind) const;

    // The registered class of that name, or null.
    static const MDynClass* Find(std::wstring_view name);

private:
    const std::wstring_view m_name;
    const MDynClass* const m_base;
    const MDynClass* m_registered_before;
};

class MDynObject {
public:
    MDynObject() = default;
    MDynObject(const MDynObject&) = default;
    MDynObject& operator=(const MDynObject&) = delete;

    virtual ~MDynObject() = default;
    virtual const MDynClass& GetDynClass() const;
    // A hook for derived classes of other modules.
    virtual void OnDynObject() {}
    // A new copy, or a new default object; null if the class has none.
    virtual std::unique_ptr<MDynObject> Clone() const { return nullptr; }
    virtual std::unique_ptr<MDynObject> CreateNew() const { return nullptr; }

    bool IsOfKind(const MDynClass& kind) const { return GetDynClass().IsOfKind(kind); }

    static const MDynClass& Class();

protected:
    uint32_t m_format = 1;  // of the object's layout
};

}  // namespace hx
