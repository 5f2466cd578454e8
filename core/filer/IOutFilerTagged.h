// The interface through which every record is written: named, typed values and named groups. Implemented by
// the writers of tagged XML and of the registry; called by records, through MFilerTaggedPair. One thread at a
// time.
//
// Each operation returns true on success. The order of the operations is part of the interface; char and
// string stand the other way round than in IInFilerTagged.
#pragma once

#include <cstdint>
#include <string_view>

namespace hx {

class IOutFilerTagged {
public:
    virtual ~IOutFilerTagged() = default;
    virtual bool Write(std::wstring_view tag, char value) = 0;
    virtual bool Write(std::wstring_view tag, std::wstring_view value) = 0;
    virtual bool Write(std::wstring_view tag, double value) = 0;
    virtual bool Write(std::wstring_view tag, float value) = 0;
    virtual bool Write(std::wstring_view tag, bool value) = 0;
    virtual bool Write(std::wstring_view tag, uint8_t value) = 0;
    virtual bool Write(std::wstring_view tag, uint16_t value) = 0;
    virtual bool Write(std::wstring_view tag, int16_t value) = 0;
    virtual bool Write(std::wstring_view tag, uint64_t value) = 0;
    virtual bool Write(std::wstring_view tag, uint32_t value) = 0;
    virtual bool Write(std::wstring_view tag, int32_t value) = 0;

    virtual bool AddComment(std::wstring_view text) = 0;
    virtual bool BeginGroup(std::wstring_view tag) = 0;
    virtual bool EndGroup() = 0;
    // Adds the content of `document`'s first element as a group of that name.
    virtual bool InsertDocument(std::wstring_view tag, std::wstring_view document) = 0;

    // A literal would be taken for a bool.
    bool Write(std::wstring_view tag, const wchar_t* value) { return Write(tag, std::wstring_view(value)); }
};

}  // namespace hx
