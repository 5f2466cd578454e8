// The defaults that a record was last read against, kept by the record. One thread at a time.
#pragma once

#include <memory>
#include <utility>

namespace hx {

// T has DropReference(), which empties its own reference copy and those of its members: what is kept here
// never carries another one, or each read would keep what all reads before it kept.
template <class T>
class ReferenceCopy {
public:
    ReferenceCopy() = default;
    ReferenceCopy(const ReferenceCopy& other)
        : m_copy(other.m_copy ? std::make_unique<T>(*other) : nullptr) {}
    ReferenceCopy(ReferenceCopy&&) noexcept = default;
    ReferenceCopy& operator=(const ReferenceCopy& other) {
        if (this != &other) m_copy = other.m_copy ? std::make_unique<T>(*other) : nullptr;
        return *this;
    }
    ReferenceCopy& operator=(ReferenceCopy&&) noexcept = default;
    ~ReferenceCopy() = default;

    // `defaults` may be the record that this belongs to.
    void Set(const T& defaults) {
        std::unique_ptr<T> copy = std::move(m_copy);
        if (copy) {
            *copy = defaults;
        } else {
            copy = std::make_unique<T>(defaults);
        }
        copy->DropReference();
        m_copy = std::move(copy);
    }
    void Drop() { m_copy.reset(); }

    // Null if there is none.
    const T* get() const { return m_copy.get(); }

private:
    const T& operator*() const { return *m_copy; }

    std::unique_ptr<T> m_copy;
};

}  // namespace hx
