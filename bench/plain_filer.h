// Plain structs through the tagged filers, without a record: each value is read or written by one call that
// names it. A list of structs is told by the number of its elements, in front of them.
#pragma once

#include <concepts>
#include <string>
#include <vector>

#include "bench/filer_hx.h"
#include "bench/plain_record.h"

namespace hx::bench {

inline constexpr Tag kCount = "Count"_tag;

class PlainReader : public HxReader {
public:
    using HxReader::HxReader;
    using HxReader::Value;

    template <std::derived_from<PlainRecord> Record>
    void Value(Tag tag, Record& record) {
        Begin(tag);
        Record::Exchange(*this, record);
        End();
    }
    template <class Record>
    void Value(Tag tag, std::vector<Record>& list) {
        uint32_t count = 0;
        Value(kCount, count);
        list.resize(count);
        for (Record& record : list) Value(tag, record);
    }
};

class PlainWriter : public HxWriter {
public:
    using HxWriter::Value;

    template <std::derived_from<PlainRecord> Record>
    void Value(Tag tag, const Record& record) {
        Begin(tag);
        Record::Exchange(*this, record);
        End();
    }
    template <class Record>
    void Value(Tag tag, const std::vector<Record>& list) {
        Value(kCount, static_cast<uint32_t>(list.size()));
        for (const Record& record : list) Value(tag, record);
    }
};

// False if the text does not hold them.
template <class Root>
bool ReadPlain(std::wstring text, Root& root) {
    PlainReader reader(std::move(text));
    Root::Exchange(reader, root);
    return reader.Right();
}

template <class Root>
std::wstring WritePlain(const Root& root) {
    PlainWriter writer;
    Root::Exchange(writer, root);
    return writer.Right() ? writer.TakeText() : std::wstring();
}

}  // namespace hx::bench
