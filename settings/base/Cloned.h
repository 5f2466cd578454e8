// Owns an object of which only the base class is known, and copies it by its Clone(). Never empty. One thread
// at a time.
#pragma once

#include <memory>

namespace hx {

template <class T>
class Cloned {
public:
    explicit Cloned(std::unique_ptr<T> object) : m_object(std::move(object)) {}
    // For moves, too: what has been moved from holds an object.
    Cloned(const Cloned& other) : m_object(other->Clone()) {}
    Cloned& operator=(const Cloned& other) {
        m_object = other->Clone();
        return *this;
    }
    ~Cloned() = default;

    T& operator*() { return *m_object; }
    const T& operator*() const { return *m_object; }
    T* operator->() { return m_object.get(); }
    const T* operator->() const { return m_object.get(); }

private:
    std::unique_ptr<T> m_object;
};

}  // namespace hx
