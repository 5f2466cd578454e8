// A static object that outlives all others: whoever still runs while the process ends, on another thread or
// in another static's destructor, finds it as it was. What it owns then must be given back before, or be
// little.
//     static NeverDestroyed<Table> table;
#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace hx {

template <class T>
class NeverDestroyed {
public:
    template <class... Arguments>
    explicit NeverDestroyed(Arguments&&... arguments) {
        ::new (m_storage) T(std::forward<Arguments>(arguments)...);
    }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& operator*() { return *std::launder(reinterpret_cast<T*>(m_storage)); }

private:
    alignas(T) std::byte m_storage[sizeof(T)];
};

}  // namespace hx
