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
            if (m_open == nullptr) return;
            try {
                m_open->EndGroup();
            } catch (...) {
                // The failure that brought us here passes on; this one could only end the program.
            }
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

// The same for an element that may be absent: false only if it is there.
template <class Body>
bool InOptionalGroup(MFilerTaggedPair& filer, std::wstring_view element, Body&& body) {
    bool opened = false;
    const bool done = InGroup(filer, element, [&] {
        opened = true;
        return body();
    });
    return done || !opened;
}

}  // namespace hx
