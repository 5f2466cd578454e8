// What made up the message of an exception, as it travels with the chain: the records that fitted and the
// text in the words of the process where the error arose. One thread at a time.
#pragma once

#include <string>
#include <vector>

#include "core/errors/MError.h"

namespace hx {

struct MMatchingRule {
    std::vector<MError> records;
    std::wstring message;

    // Group "MatchingRule" with a group "Error" for each record, and the string "Message". Reading replaces
    // both; a rule without a message cannot be read.
    bool Write(MFilerTaggedPair& filer) const;
    bool Read(MFilerTaggedPair& filer);
};

}  // namespace hx
