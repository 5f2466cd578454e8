// The frame of every record's ReadTagged and WriteTagged: open the element, do the body, close the element.
#pragma once

#include <string_view>

#include "core/filer/MFilerTaggedPair.h"

namespace hx {

// True if opening, `body` and closing all succeeded. What was opened is closed, also if the body fails or
// throws; what could not be opened is left alone.
template <class Body>
bool InGroup(MFilerTaggedPair& filer, std::wstring_view element, Body&& body) {
    if (!filer.BeginGroup(element)) return false;
    class Closer {
    public:
        explicit Closer(MFilerTaggedPair& open) : m_open(&open) {}
        Closer(const Closer&) = delete;
        Closer& operator=(const Closer&) = delete;
        ~Closer() {
            if (m_open != nullptr) m_open->EndGroup();
        }
        bool Close() {
            MFilerTaggedPair& open = *m_open;
            m_open = nullptr;
            return open.EndGroup();
        }

    private:
        MFilerTaggedPair* m_open;
    } closer(filer);
    const bool done = body();
    return closer.Close() && done;
}

}  // namespace hx
