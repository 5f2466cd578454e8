// The strict reader of tagged XML. Values are read in the order in which they were written: one unexpected
// element stops every later value at its level. Groups are searched forward, past unknown elements. Without a
// document (ill-formed text, other root or namespace) everything answers false.
#pragma once

#include <string>
#include <string_view>

#include "core/filer/IInFilerTagged.h"
#include "core/filer/TaggedXmlReader.h"

namespace hx {

class MInFilerTaggedXml : public IInFilerTagged {
public:
    // `name_space` empty: any. The text is moved in, not copied.
    MInFilerTaggedXml(std::wstring text, std::wstring_view root, std::wstring_view name_space = {});

    bool Read(std::wstring_view tag, std::wstring& value, const std::wstring& fallback) override;
    bool Read(std::wstring_view tag, char& value, char fallback) override;
    bool Read(std::wstring_view tag, double& value, double fallback) override;
    bool Read(std::wstring_view tag, float& value, float fallback) override;
    bool Read(std::wstring_view tag, bool& value, bool fallback) override;
    bool Read(std::wstring_view tag, uint8_t& value, uint8_t fallback) override;
    bool Read(std::wstring_view tag, uint16_t& value, uint16_t fallback) override;
    bool Read(std::wstring_view tag, int16_t& value, int16_t fallback) override;
    bool Read(std::wstring_view tag, uint64_t& value, uint64_t fallback) override;
    bool Read(std::wstring_view tag, uint32_t& value, uint32_t fallback) override;
    bool Read(std::wstring_view tag, int32_t& value, int32_t fallback) override;
    bool BeginGroup(std::wstring_view tag) override;
    bool EndGroup() override;
    bool ExtractGroup(std::wstring_view tag, std::wstring& document) override;

private:
    template <class T>
    bool ReadValue(std::wstring_view tag, T& value, const T& fallback);

    TaggedXmlReader m_reader;
};

}  // namespace hx
