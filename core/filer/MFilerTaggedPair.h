// The handle that a record receives when it is read or written: a reader, a writer, or both. A record has one
// function over this handle for both ways. The handle owns neither. One thread at a time.
#pragma once

#include <string>
#include <string_view>

#include "core/filer/IInFilerTagged.h"
#include "core/filer/IOutFilerTagged.h"

namespace hx {

class MFilerTaggedPair {
public:
    MFilerTaggedPair(IInFilerTagged& in) : m_in(&in) {}
    MFilerTaggedPair(IOutFilerTagged& out) : m_out(&out) {}
    MFilerTaggedPair(IInFilerTagged* in, IOutFilerTagged* out) : m_in(in), m_out(out) {}

    bool IsReading() const { return m_in != nullptr; }
    bool IsWriting() const { return m_out != nullptr; }

    // With both, the two must succeed.
    bool BeginGroup(std::wstring_view tag);
    bool EndGroup();

    // Reads into `value`, or writes it; with both, writes what was read.
    template <class T>
    bool Exchange(std::wstring_view tag, T& value, const T& fallback) {
        const bool read = m_in == nullptr || Read(tag, value, fallback);
        const bool written = m_out == nullptr || Write(tag, value);
        return (m_in != nullptr || m_out != nullptr) && read && written;
    }

    // To the reader; false without one, and `value` is then unchanged.
    template <class T>
    bool Read(std::wstring_view tag, T& value, const T& fallback) {
        return m_in != nullptr && m_in->Read(tag, value, fallback);
    }
    bool ExtractGroup(std::wstring_view tag, std::wstring& document);
    bool Found() const { return m_in != nullptr && m_in->Found(); }

    // To the writer; false without one.
    template <class T>
    bool Write(std::wstring_view tag, const T& value) {
        return m_out != nullptr && m_out->Write(tag, value);
    }
    bool AddComment(std::wstring_view text);
    bool InsertDocument(std::wstring_view tag, std::wstring_view document);

private:
    IInFilerTagged* m_in = nullptr;
    IOutFilerTagged* m_out = nullptr;
};

}  // namespace hx
