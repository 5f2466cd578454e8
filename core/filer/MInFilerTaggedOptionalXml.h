// The optional reader of tagged XML: nothing that is missing is an error. Every read and every group
// operation returns true; an absent value leaves its fallback. Inside a group that is absent, reads act on
// the enclosing level.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/filer/IInFilerTagged.h"
#include "core/filer/TaggedXmlReader.h"

namespace hx {

class MInFilerTaggedOptionalXml : public IInFilerTagged {
public:
    // `name_space` empty: any. The text is moved in, not copied.
    MInFilerTaggedOptionalXml(std::wstring text, std::wstring_view root, std::wstring_view name_space = {});

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
    std::vector<bool> m_groups;  // open groups: found and entered, or not
};

}  // namespace hx
