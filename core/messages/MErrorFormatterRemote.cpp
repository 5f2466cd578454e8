#include "core/messages/MErrorFormatterRemote.h"

#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/messages/MMatchingRule.h"

namespace hx {

IErrorFormatterRuleBased::Found MErrorFormatterRemote::Match(const MException::Chain& chain) const {
    for (auto place = chain.rbegin(); place != chain.rend(); ++place) {
        std::wstring description = (*place)->GetDescription();
        if (description.empty()) continue;
        MInFilerTaggedXml reader(std::move(description), kChainRoot);
        MFilerTaggedPair filer(reader);
        MMatchingRule remote;
        if (!remote.Read(filer)) continue;
        Found found;
        found.score = kRemoteMessage;
        found.message = std::make_unique<MErrorMessageTrivial>(std::move(remote.message));
        for (const MError& record : remote.records) {
            found.parameters.insert(record.GetParameters().begin(), record.GetParameters().end());
        }
        found.records = std::move(remote.records);
        return found;
    }
    return {};
}

}  // namespace hx
