// The writer of tagged XML: a document with one root element, a child element for each value, with its type
// in an attribute, and one for each group. The text is taken when writing is finished. One thread at a time.
//
// A record is written front to back and never looked at again; so the text is made as it comes, without an
// index.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/filer/TaggedType.h"
#include "core/filer/TypedFilers.h"

namespace hx {

class MOutFilerTaggedXml : public TypedWrites<MOutFilerTaggedXml> {
public:
    // With a name that no element can have there is no document, and everything answers false.
    explicit MOutFilerTaggedXml(std::wstring_view root, std::wstring_view name_space = {});

    // False for a text that would end the comment early.
    bool AddComment(std::wstring_view text) override;
    bool BeginGroup(std::wstring_view tag) override;
    bool EndGroup() override;
    // False if `document` is ill-formed.
    bool InsertDocument(std::wstring_view tag, std::wstring_view document) override;

    // The whole document, with what is open closed; empty if there is none.
    std::wstring GetText() const;
    // The same without a copy; the filer is finished afterwards.
    std::wstring TakeText();

private:
    // Where the name of an element without its end tag stands in the text.
    struct Name {
        size_t offset;
        size_t length;
    };

    friend TypedWrites;
    template <class T, class Value>
    bool WriteValue(std::wstring_view tag, Value value) {
        constexpr bool kHoldsNoMarkup = !std::is_same_v<T, std::wstring> && !std::is_same_v<T, char>;
        return WriteText(tag, TaggedType<T>::kWord, TaggedType<T>::Format(value), kHoldsNoMarkup);
    }
    bool WriteText(std::wstring_view tag, std::wstring_view type, std::wstring_view text,
                   bool holds_no_markup);
    void Open(std::wstring_view tag);
    void BeginChild();
    void AppendEnd(std::wstring& text, const Name& name, bool empty) const;
    void AppendEnds(std::wstring& text) const;

    std::wstring m_text;
    std::vector<Name> m_open;       // root and groups, outermost first; empty: no document
    bool m_start_tag_open = false;  // of the innermost: "<name" as yet, neither ">" nor "/>"
};

}  // namespace hx
