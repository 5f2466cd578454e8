// The rule for errors of other components: their side of the call sent its own message along with the chain.
// Any thread.
#pragma once

#include "core/messages/IErrorFormatterRuleBased.h"

namespace hx {

class MErrorFormatterRemote : public IErrorFormatterRuleBased {
public:
    static constexpr uint32_t kRemoteMessage = 500;

    // The message of the newest record whose description is a chain document with one.
    Found Match(const MException::Chain& chain) const override;
};

}  // namespace hx
