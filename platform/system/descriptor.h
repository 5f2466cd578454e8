// An open file that closes itself, and what every call on one needs. For the sources of this folder.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace hx {

class Descriptor {
public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_descriptor >= 0) close(m_descriptor);
    }
    int get() const { return m_descriptor; }
    bool is_open() const { return m_descriptor >= 0; }

private:
    int m_descriptor;
};

inline std::error_code LastError() {
    return {errno, std::generic_category()};
}

// Whatever a system call that a signal interrupted comes to in the end.
template <class Call>
auto Retry(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

}  // namespace hx
