// What a component says of its failure: a chain document with a matching rule, or anything else.
#include "core/messages/MErrorFormatter.h"
#include "core/messages/MErrorFormatterMapped.h"
#include "fuzz/fuzz_target.h"

namespace fuzz {
namespace {

using hx::MErrorFormatter;
using hx::MException;

// The record of a call that failed with this description.
class FailedCall : public hx::MError {
public:
    explicit FailedCall(std::wstring description) : MError(L"Call"), m_description(std::move(description)) {}
    std::unique_ptr<hx::MDynObject> Clone() const override { return std::make_unique<FailedCall>(*this); }
    std::wstring GetDescription() const override { return m_description; }

private:
    std::wstring m_description;
};

}  // namespace

void ChainDocument(Input input) {
    static constexpr uint32_t kRemote = hx::MErrorFormatterRemote::kRemoteMessage;
    MErrorFormatter formatter;
    const MException received{FailedCall(input.Text(SIZE_MAX))};
    const MErrorFormatter::Formatted shown = formatter.Format(received);
    Require(shown.score == 0 || shown.score == kRemote, "there is no other rule");
    Require(shown.score != 0 || shown.message == MErrorFormatter::kNoDescription, "no rule, no message");

    MException sent_on;
    Require(hx::ReadChainDocument(shown.chain_document, sent_on), "what is sent on can be read");
    Require(sent_on.GetChain().size() == received.GetChain().size(), "no record is lost");
    const MException received_again{FailedCall(shown.chain_document)};
    Require(received_again.GetChain().size() == received.GetChain().size() + 1,
            "the whole chain, and the call");
    Require(formatter.Format(received_again).score == shown.score, "the message travels on");

    hx::MErrorFormatterMapped own;
    own.SetDefault(std::make_unique<hx::MErrorMessageTrivial>(L"default"));
    for (const auto& record : received.GetChain()) {
        own.AddMessage({}, record->GetCode(), std::make_unique<hx::MErrorMessageTrivial>(record->GetCode()));
    }
    const auto found = own.Match(received.GetChain());
    Require(found.score == 1 || found.message->GetText() == found.records.front().GetCode(),
            "a message belongs to the record that it was found by");
}

}  // namespace fuzz
