// The optional reader of tagged XML: nothing that is missing is an error. Every read and every group
// operation returns true; an absent value leaves its fallback. Inside a group that is absent, reads act on
// the enclosing level.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/filer/TaggedXmlReader.h"
#include "core/filer/TypedFilers.h"

namespace hx {

class MInFilerTaggedOptionalXml : public TypedReads<MInFilerTaggedOptionalXml> {
public:
    // `name_space` empty: any. The text is moved in, not copied.
    MInFilerTaggedOptionalXml(std::wstring text, std::wstring_view root, std::wstring_view name_space = {});

    bool BeginGroup(std::wstring_view tag) override;
    bool EndGroup() override;
    bool ExtractGroup(std::wstring_view tag, std::wstring& document) override;

private:
    friend TypedReads;
    template <class T>
    bool ReadValue(std::wstring_view tag, T& value, const T& fallback) {
        m_found = m_reader.Read(tag, value);
        if (!m_found) value = fallback;
        return true;
    }

    TaggedXmlReader m_reader;
    std::vector<bool> m_groups;  // open groups: found and entered, or not
};

}  // namespace hx
