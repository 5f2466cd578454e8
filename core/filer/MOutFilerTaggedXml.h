// The writer of tagged XML: a document with one root element, a child element for each value, with its type
// in an attribute, and one for each group. The text is taken when writing is finished. One thread at a time.
#pragma once

#include <string>
#include <string_view>

#include "core/filer/IOutFilerTagged.h"
#include "core/xml/MXmlDocument.h"

namespace hx {

class MOutFilerTaggedXml : public IOutFilerTagged {
public:
    // With a name that no element can have there is no document, and everything answers false.
    explicit MOutFilerTaggedXml(std::wstring_view root, std::wstring_view name_space = {});

    bool Write(std::wstring_view tag, char value) override;
    bool Write(std::wstring_view tag, std::wstring_view value) override;
    bool Write(std::wstring_view tag, double value) override;
    bool Write(std::wstring_view tag, float value) override;
    bool Write(std::wstring_view tag, bool value) override;
    bool Write(std::wstring_view tag, uint8_t value) override;
    bool Write(std::wstring_view tag, uint16_t value) override;
    bool Write(std::wstring_view tag, int16_t value) override;
    bool Write(std::wstring_view tag, uint64_t value) override;
    bool Write(std::wstring_view tag, uint32_t value) override;
    bool Write(std::wstring_view tag, int32_t value) override;
    using IOutFilerTagged::Write;
    bool AddComment(std::wstring_view text) override;
    bool BeginGroup(std::wstring_view tag) override;
    bool EndGroup() override;
    bool InsertDocument(std::wstring_view tag, std::wstring_view document) override;

    // The whole document; empty if there is none.
    const std::wstring& GetText() const { return m_document.GetText(); }
    // The same without a copy; the filer is finished afterwards.
    std::wstring TakeText();

private:
    template <class T, class Value>
    bool WriteValue(std::wstring_view tag, Value value);

    MXmlDocument m_document;
    bool m_open = false;
    uint32_t m_depth = 0;  // groups entered
};

}  // namespace hx
