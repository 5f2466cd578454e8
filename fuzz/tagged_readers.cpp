#include "core/filer/MInFilerTaggedOptionalXml.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "fuzz/fuzz_target.h"

namespace fuzz {
namespace {

template <class T>
void ReadOne(hx::IInFilerTagged& reader, const std::wstring& tag, bool always) {
    T value{};
    const bool read = reader.Read(tag, value, T{});
    Require(read || !always, "the optional reader always succeeds");
    // A number that is no number differs from itself.
    Require(read || value == T{} || value != value, "what is not read is the fallback");
}

void ReadAsTold(hx::IInFilerTagged& reader, Input& input, bool always) {
    constexpr size_t kLongestTag = 16;
    while (!input.Empty()) {
        const uint8_t operation = input.Byte();
        const std::wstring tag = input.Text(kLongestTag);
        std::wstring document;
        switch (operation % 14) {
            case 0:
                ReadOne<std::wstring>(reader, tag, always);
                break;
            case 1:
                ReadOne<char>(reader, tag, always);
                break;
            case 2:
                ReadOne<double>(reader, tag, always);
                break;
            case 3:
                ReadOne<float>(reader, tag, always);
                break;
            case 4:
                ReadOne<bool>(reader, tag, always);
                break;
            case 5:
                ReadOne<uint8_t>(reader, tag, always);
                break;
            case 6:
                ReadOne<uint16_t>(reader, tag, always);
                break;
            case 7:
                ReadOne<int16_t>(reader, tag, always);
                break;
            case 8:
                ReadOne<uint64_t>(reader, tag, always);
                break;
            case 9:
                ReadOne<uint32_t>(reader, tag, always);
                break;
            case 10:
                ReadOne<int32_t>(reader, tag, always);
                break;
            case 11:
                reader.BeginGroup(tag);
                break;
            case 12:
                reader.EndGroup();
                break;
            default:
                if (!reader.ExtractGroup(tag, document)) {
                    Require(document.empty(), "what is not extracted is empty");
                    break;
                }
                hx::MXmlDocument extracted;
                extracted.Parse(document);
                Require(extracted.IsReadable(), "an extracted group is a document");
        }
    }
}

}  // namespace

void TaggedReader(Input input) {
    std::wstring text = input.Text(SIZE_MAX);
    hx::MInFilerTaggedXml reader(std::move(text), L"R");
    ReadAsTold(reader, input, false);
}

void TaggedOptionalReader(Input input) {
    std::wstring text = input.Text(SIZE_MAX);
    hx::MInFilerTaggedOptionalXml reader(std::move(text), L"R");
    ReadAsTold(reader, input, true);
}

}  // namespace fuzz
