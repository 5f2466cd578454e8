// Whether a listener is advised on a scanner API, and by which cookie. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "hxapi/IHXApi.h"

namespace hx {

class ApiEventsConnection {
public:
    // Stands for no cookie.
    static constexpr DWORD kNotAdvised = 0xFEFEFEFE;

    DWORD Cookie() const { return m_cookie; }

    // A source that has no such events, or refuses, leaves things as they are. Throws
    // FatalComError(E_FAIL) if there is a cookie.
    void Advise(IUnknown* source, IUnknown* sink);
    // The same, and then asks for the state that the events go on from; nothing if the API does not tell, or
    // if another one came, or none, while it was asked: this may be gone then.
    std::optional<int32_t> Follow(IHXApi& api, IUnknown* sink);
    // Does nothing without a cookie; afterwards there is none.
    void Unadvise(IUnknown* source);

private:
    DWORD m_cookie = kNotAdvised;
    std::shared_ptr<const bool> m_following;  // until the source is left
};

}  // namespace hx
