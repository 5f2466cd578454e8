// The interface through which every record is read: named, typed values and named groups, in the order in
// which they were written. Implemented by the readers of tagged XML and of the registry; called by records,
// through MFilerTaggedPair. One thread at a time.
//
// Each read first stores `fallback` in `value`, then tries, and returns true if it found the value; no read
// throws for bad content. The order of the operations is part of the interface.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hx {

class IInFilerTagged {
public:
    virtual ~IInFilerTagged() = default;
    virtual bool Read(std::wstring_view tag, std::wstring& value, const std::wstring& fallback) = 0;
    virtual bool Read(std::wstring_view tag, char& value, char fallback) = 0;
    virtual bool Read(std::wstring_view tag, double& value, double fallback) = 0;
    virtual bool Read(std::wstring_view tag, float& value, float fallback) = 0;
    virtual bool Read(std::wstring_view tag, bool& value, bool fallback) = 0;
    virtual bool Read(std::wstring_view tag, uint8_t& value, uint8_t fallback) = 0;
    virtual bool Read(std::wstring_view tag, uint16_t& value, uint16_t fallback) = 0;
    virtual bool Read(std::wstring_view tag, int16_t& value, int16_t fallback) = 0;
    virtual bool Read(std::wstring_view tag, uint64_t& value, uint64_t fallback) = 0;
    virtual bool Read(std::wstring_view tag, uint32_t& value, uint32_t fallback) = 0;
    virtual bool Read(std::wstring_view tag, int32_t& value, int32_t fallback) = 0;

    // Enters the next group of that name.
    virtual bool BeginGroup(std::wstring_view tag) = 0;
    // Leaves it; the next search goes on behind it.
    virtual bool EndGroup() = 0;
    // Gives the next group of that name as a document of its own; `document` is empty on failure.
    virtual bool ExtractGroup(std::wstring_view tag, std::wstring& document) = 0;

    // False if what was last read or entered is not there and the reader answered true nevertheless, as one
    // does to which everything is optional: whoever reads until nothing is left asks for it, too.
    bool Found() const { return m_found; }

protected:
    bool m_found = true;
};

}  // namespace hx
