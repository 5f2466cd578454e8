// A rule that chooses the user's words for an exception: it looks at the chain and says how well it fits. The
// formatter asks all its rules and takes the best. Rules are called on any thread, several at once, and are
// not changed by it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/errors/MException.h"

namespace hx {

class IErrorFormatterRuleBased {
public:
    // Where a message text comes from.
    class ErrorMessageProxy {
    public:
        virtual ~ErrorMessageProxy() = default;
        // The text, with its placeholders. May throw an MException.
        virtual std::wstring GetText() const = 0;
        virtual std::unique_ptr<ErrorMessageProxy> Clone() const = 0;
    };

    // What a rule found; with score 0 nothing.
    struct Found {
        std::unique_ptr<ErrorMessageProxy> message;
        uint32_t score = 0;
        MError::Parameters parameters;  // for the placeholders
        std::vector<MError> records;    // the ones that fitted
    };

    virtual Found Match(const MException::Chain& chain) const = 0;

protected:
    ~IErrorFormatterRuleBased() = default;
};

// A text as it is.
class MErrorMessageTrivial : public IErrorFormatterRuleBased::ErrorMessageProxy {
public:
    explicit MErrorMessageTrivial(std::wstring text) : m_text(std::move(text)) {}
    std::wstring GetText() const override { return m_text; }
    std::unique_ptr<ErrorMessageProxy> Clone() const override {
        return std::make_unique<MErrorMessageTrivial>(*this);
    }

private:
    std::wstring m_text;
};

}  // namespace hx
