// An XML document as one wide text with an index of its elements beside it.
//
// It parses leniently: a document with errors still loads and can be navigated, and the first problem is told
// in one message. It is read and edited at a current position; every edit splices the one text. The XML
// filers are its main users. A document belongs to one thread at a time. No operation throws for bad input:
// problems go to GetError, navigation and edits that cannot be done return false and change nothing;
// allocation failures propagate.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/xml/ElementIndex.h"

namespace hx {

// Kinds of node; a request may combine them.
enum NodeKind : uint32_t {
    kElementNode = 1,
    kTextNode = 2,
    kWhiteSpaceNode = 4,
    kCDataNode = 8,
    kInstructionNode = 16,
    kCommentNode = 32,
    kDoctypeNode = 64,
    kLoneEndTagNode = 128,
};

// How AddElement adds.
enum AddFlag : uint32_t {
    kAddChild = 1,           // as last child of the main element, which becomes the parent
    kAddSpace = 2,           // an element without data is written "<name />"
    kAddCData = 4,           // the data becomes CDATA
    kAddWithReferences = 8,  // an "&" of the data that begins a well-formed reference stays as it is
};

class MXmlDocument {
public:
    // Flag: names are compared without regard to case.
    static constexpr uint32_t kIgnoreCase = 8;

    explicit MXmlDocument(uint32_t flags = 0);

    // Replaces the text, indexes it and resets the position. True if well-formed.
    bool Parse(std::wstring text);

    const std::wstring& GetText() const { return m_text; }
    // The text without a copy; the document is empty afterwards.
    std::wstring TakeText();
    // What is wrong with the parsed text; empty if well-formed.
    const std::wstring& GetError() const { return m_error; }
    // True if well-formed, or if the only problems are elements named "00" to "33", as old records hold them.
    bool IsReadable() const { return m_readable; }

    // Position. The main element is the one last found or added; there is none after a reset or on entering.

    void ResetPosition() { m_position = {}; }
    // Keeps the current position under a name; the empty name is one as well.
    void SavePosition(std::wstring_view name = {});
    bool RestorePosition(std::wstring_view name = {});
    // Moves to the next sibling element that matches `name` (any, if empty), or to the first such child of
    // the parent while there is no main element.
    bool FindElement(std::wstring_view name = {});
    // Moves to the next sibling element if it matches `name` and has the attribute with that value; else
    // stays.
    bool FindNext(std::wstring_view name, std::wstring_view attribute, std::wstring_view value);
    // Moves to the next node of one of the kinds, elements included, and returns its kind; 0 if there is
    // none.
    uint32_t FindNode(uint32_t kinds);
    // The main element becomes the parent.
    bool EnterElement();
    // The parent becomes the main element. False at the top.
    bool LeaveElement();

    // Reading. Without a main element the answer is that of the first child.

    uint32_t GetNodeKind() const { return m_position.node_kind; }
    // The tag name; for another node "#text", "#cdata-section", "#comment", the target of a processing
    // instruction, the name of a lone end tag or of a document type.
    std::wstring GetTagName() const;
    // The element's own text, references decoded and CDATA as it stands.
    std::wstring GetContent() const;
    // The current node's text: what AddNode would be given to write it.
    std::wstring GetNodeText() const;
    // Decoded value; empty if absent.
    std::wstring GetAttribute(std::wstring_view name) const;
    // The markup between the start tag and the end tag.
    std::wstring GetElementContent() const;
    // Nesting level of the element: 1 for the root.
    uint32_t GetLevel() const { return m_index[Current()].level; }

    // Editing.

    bool SetAttribute(std::wstring_view name, std::wstring_view value);
    // Adds an element behind the current node (as first child of the parent if there is none) and makes it
    // the main element. With `attribute` it is born with that attribute. False for a name that could not be
    // read again.
    bool AddElement(std::wstring_view name, std::wstring_view data = {}, uint32_t flags = 0,
                    std::wstring_view attribute = {}, std::wstring_view value = {});
    // Adds a node behind the current one and makes it current. False if `text` would end the node early.
    bool AddNode(uint32_t kind, std::wstring_view text);
    // Puts `markup` in the place of the main element's content. Ill-formed markup is taken, and flagged.
    bool SetElementContent(std::wstring_view markup);

    // For readers that make no copies. The views hold until the next edit.

    // An unnamed snapshot of where the document is read.
    struct Position {
        uint32_t parent = 0;
        uint32_t main = 0;
        uint32_t node_kind = 0;    // of the current node; 0 if there is none
        uint32_t node_offset = 0;  // of the current node if it is no element
        uint32_t node_length = 0;
    };
    const Position& GetPosition() const { return m_position; }
    void SetPosition(const Position& position) { m_position = position; }
    // The start tag, from "<" to ">".
    std::wstring_view StartTag() const;
    // True if the element matches a request for `name`.
    bool IsElement(std::wstring_view name) const;
    // True if that name is all that the start tag holds.
    bool IsBare(std::wstring_view name) const {
        return m_position.main != 0 && IsBareTag(m_position.main, name);
    }
    // The attribute's value as it is written, references not decoded.
    std::wstring_view RawAttribute(std::wstring_view name) const;
    // As GetContent, without a copy where the text holds it as it is; else through `scratch`.
    std::wstring_view Content(std::wstring& scratch) const {
        const uint32_t element = m_position.main;
        if (element == 0 || (m_index[element].flags & kPlain) == 0) return ContentOtherwise(scratch);
        const Range range = ContentRange(element);
        return {m_text.data() + range.begin, range.end - range.begin};
    }
    // As GetElementContent, without a copy.
    std::wstring_view ElementContent() const;

    // Elements in the index, the document's own record included, and the memory that they take.
    uint32_t RecordCount() const { return m_index.Count(); }
    size_t IndexBytes() const { return m_index.BytesInUse(); }

private:
    // Of the text, in characters: offsets have 32 bits, and one value is no offset.
    static constexpr size_t kMaxLength = UINT32_MAX - 1;

    struct SavedPosition {
        std::wstring name;
        Position position;
    };
    struct Range {
        uint32_t begin;
        uint32_t end;
    };
    // Where something is inserted: behind the element `previous` (0: in front of all elements) of `parent`.
    struct Place {
        uint32_t parent;
        uint32_t previous;
        uint32_t offset;
    };

    bool IgnoreCase() const { return (m_flags & kIgnoreCase) != 0; }
    std::vector<SavedPosition>& BucketOf(std::wstring_view name);
    uint32_t FirstChild(uint32_t parent) const { return m_index[parent].first_child; }
    uint32_t Current() const {
        return m_position.main != 0 ? m_position.main : FirstChild(m_position.parent);
    }
    uint32_t NextElement() const;
    bool IsAttribute(std::wstring_view name, std::wstring_view value) const;
    bool AtOtherNode() const { return m_position.node_length != 0; }
    uint32_t EndOf(uint32_t element) const { return m_index.Start(element) + m_index[element].length; }
    bool IsBareTag(uint32_t element, std::wstring_view name) const;
    Range ContentRange(uint32_t element) const {
        const ElementRecord& record = m_index[element];
        return {m_index.Start(element) + record.start_tag_length, EndOf(element) - record.end_tag_length};
    }
    std::wstring_view ContentOtherwise(std::wstring& scratch) const;
    std::wstring_view Slice(uint32_t begin, uint32_t end) const;
    std::wstring_view TagName(uint32_t element) const;
    uint32_t NodeAt(uint32_t at, uint32_t end, uint32_t& node_end) const;
    void AppendContent(std::wstring& out, uint32_t element) const;

    Place PlaceBehindCurrent(bool behind_line_break) const;
    bool Insert(Place& place, bool own_line);
    uint32_t AddRecord(const Place& place, uint32_t start_tag_length, uint32_t length);
    bool Splice(uint32_t container, uint32_t previous, uint32_t offset, uint32_t removed,
                std::wstring_view inserted);
    bool HasElementsBehind(uint32_t container, uint32_t previous) const;
    void ReleaseChildren(uint32_t element);
    void IndexContent(uint32_t element);

    const uint32_t m_flags;
    std::wstring m_text;
    std::wstring m_error;
    bool m_readable = false;
    ElementIndex m_index;
    Position m_position;
    std::array<std::vector<SavedPosition>, 7> m_saved;
    std::wstring m_markup;  // scratch: what is about to be inserted
};

}  // namespace hx
