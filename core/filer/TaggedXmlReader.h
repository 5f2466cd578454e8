// What both readers of tagged XML do: open a document, find the next value or group. They differ in what they
// make of a missing one. One thread at a time.
#pragma once

#include <string>
#include <string_view>

#include "core/filer/TaggedType.h"
#include "core/filer/TaggedXml.h"
#include "core/xml/MXmlDocument.h"

namespace hx {

class TaggedXmlReader {
public:
    // Enters the root element of that name, which must bear the namespace if one is asked for. Without one,
    // or if the text is ill-formed, there is no document and everything below answers false.
    TaggedXmlReader(std::wstring text, std::wstring_view root, std::wstring_view name_space);

    // The next element is taken if it has the tag and the type's word, and stays to be read otherwise. Taken
    // with a text that is no such value, the result is false all the same.
    template <class T>
    bool Read(std::wstring_view tag, T& value) {
        return m_open && m_document.FindNext(tag, kTypeAttribute, TaggedType<T>::kWord) &&
               TaggedType<T>::Parse(m_document.Content(m_scratch), value);
    }

    // Enters the next group of that name, past whatever stands in front of it.
    bool BeginGroup(std::wstring_view tag);
    bool EndGroup();
    // Gives the next group's content as the text of a document with the root "MFilerTaggedXml", and goes
    // behind it.
    bool ExtractGroup(std::wstring_view tag, std::wstring& document);

private:
    bool FindGroup(std::wstring_view tag);

    MXmlDocument m_document;
    bool m_open = false;
    uint32_t m_depth = 0;  // groups entered
    std::wstring m_scratch;
};

}  // namespace hx
