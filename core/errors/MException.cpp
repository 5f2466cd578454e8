#include "core/errors/MException.h"

#include <algorithm>

#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"

namespace hx {
namespace {

constexpr std::wstring_view kRecordGroup = L"Error";

}  // namespace

MException::MException(const MException& other) : std::exception(other) {
    for (const auto& error : other.m_chain) Append(*error);
}

void MException::Append(const MError& error) {
    std::unique_ptr<MDynObject> clone = error.Clone();
    if (!clone || !clone->IsOfKind(MError::Class())) return;
    m_chain.emplace_back(static_cast<const MError*>(clone.release()));
}

void MException::AppendChained(const MError& error) {
    const std::wstring description = error.GetDescription();
    MException remote;
    if (!description.empty() && ReadChainDocument(description, remote)) {
        m_chain.splice(m_chain.end(), remote.m_chain);
    }
    Append(error);
}

bool MException::Contains(const MError& kind_and_code) const {
    return std::ranges::any_of(m_chain, [&](const auto& error) {
        return error->IsOfKind(kind_and_code.GetDynClass()) && error->GetCode() == kind_and_code.GetCode();
    });
}

bool MException::Write(MFilerTaggedPair& filer, std::wstring_view tag) const {
    return filer.BeginGroup(tag) &&
           std::ranges::all_of(m_chain,
                               [&](const auto& error) { return error->Write(filer, kRecordGroup); }) &&
           filer.EndGroup();
}

bool MException::Read(MFilerTaggedPair& filer, std::wstring_view tag) {
    if (!filer.BeginGroup(tag)) return false;
    m_chain.clear();
    for (;;) {
        auto error = std::make_unique<MError>();
        if (!error->Read(filer, kRecordGroup)) break;
        m_chain.push_back(std::move(error));
    }
    return filer.EndGroup();
}

std::wstring ErrorCodesText(const MException& exception) {
    std::wstring text;
    for (auto place = exception.GetChain().rbegin(); place != exception.GetChain().rend(); ++place) {
        const MError* const error = place->get();
        if (error->GetCode().empty()) continue;
        if (!text.empty()) text += L'\n';
        text.append(error->GetCode()).append(L" (");
        std::wstring_view separator;
        for (const auto& [name, value] : error->GetParameters()) {
            text.append(separator).append(L"$").append(name).append(L"=\"").append(value).append(L"\"");
            separator = L", ";
        }
        text += L')';
    }
    return text;
}

std::wstring ChainDocument(const MException& exception) {
    MOutFilerTaggedXml writer(kChainRoot);
    MFilerTaggedPair filer(writer);
    return exception.Write(filer, kChainGroup) ? writer.TakeText() : std::wstring();
}

bool ReadChainDocument(std::wstring_view document, MException& exception) {
    MInFilerTaggedXml reader(std::wstring(document), kChainRoot);
    MFilerTaggedPair filer(reader);
    return exception.Read(filer, kChainGroup);
}

}  // namespace hx
