// The strict reader of tagged XML. Values are read in the order in which they were written: one unexpected
// element stops every later value at its level. Groups are searched forward, past unknown elements. Without a
// document (ill-formed text, other root or namespace) everything answers false.
#pragma once

#include <string>
#include <string_view>

#include "core/filer/TaggedXmlReader.h"
#include "core/filer/TypedFilers.h"

namespace hx {

class MInFilerTaggedXml : public TypedReads<MInFilerTaggedXml> {
public:
    // `name_space` empty: any. The text is moved in, not copied.
    MInFilerTaggedXml(std::wstring text, std::wstring_view root, std::wstring_view name_space = {});

    bool BeginGroup(std::wstring_view tag) override;
    bool EndGroup() override;
    bool ExtractGroup(std::wstring_view tag, std::wstring& document) override;

private:
    friend TypedReads;
    template <class T>
    bool ReadValue(std::wstring_view tag, T& value, const T& fallback) {
        if (m_reader.Read(tag, value)) return true;
        value = fallback;
        return false;
    }

    TaggedXmlReader m_reader;
};

}  // namespace hx
