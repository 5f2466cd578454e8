#include "core/messages/MMatchingRule.h"

#include <algorithm>

namespace hx {
namespace {

constexpr std::wstring_view kGroup = L"MatchingRule";
constexpr std::wstring_view kRecordGroup = L"Error";
constexpr std::wstring_view kMessage = L"Message";

}  // namespace

bool MMatchingRule::Write(MFilerTaggedPair& filer) const {
    return filer.BeginGroup(kGroup) &&
           std::ranges::all_of(records,
                               [&](const MError& record) { return record.Write(filer, kRecordGroup); }) &&
           filer.Write(kMessage, message) && filer.EndGroup();
}

bool MMatchingRule::Read(MFilerTaggedPair& filer) {
    if (!filer.BeginGroup(kGroup)) return false;
    records.clear();
    for (MError record; record.Read(filer, kRecordGroup);) records.push_back(record);
    const bool has_message = filer.Read(kMessage, message, std::wstring());
    return filer.EndGroup() && has_message;
}

}  // namespace hx
