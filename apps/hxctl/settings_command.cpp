// hxctl settings: a settings object as the scanner API uses it, created through the component library.

#include "apps/hosting/HowToRegister.h"
#include "apps/hosting/SettingsObject.h"
#include "apps/hxctl/command.h"
#include "apps/hxctl/json.h"
#include "core/errors/MErrorCom.h"
#include "core/errors/MException.h"
#include "platform/com/loader.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

// What the object tells of its failure: the codes of the chain that it sends, empty if it sends none.
std::string SentCodes(HRESULT result, IXmlBstrSerializable& settings) {
    const hx::MErrorCom error(result, &settings, hx::uuid_of<IXmlBstrSerializable>());
    hx::MException sent;
    hx::ReadChainDocument(error.GetDescription(), sent);
    return hx::ToUtf8(hx::ErrorCodesText(sent));
}

hosting::CalledLast Exchange(const SettingsRequest& request, const hx::Bstr& text, hx::Bstr& written,
                             std::string& codes) {
    hx::ComPtr<IXmlBstrSerializable> settings;
    hosting::CalledLast answer = hosting::CreateSettings(request.type, settings);
    if (FAILED(answer.result)) return answer;
    if (request.read) answer = {"ReadXmlBstr", settings->ReadXmlBstr(text.get())};
    if (SUCCEEDED(answer.result) && request.write) {
        answer = {"WriteXmlBstr", settings->WriteXmlBstr(written.put())};
    }
    if (FAILED(answer.result)) codes = SentCodes(answer.result, *settings);
    return answer;
}

}  // namespace

Outcome RunSettings(const SettingsRequest& request, bool json) {
    Outcome outcome;
    hx::Bstr text;
    if (request.file) {
        const auto read = ReadTextFile(*request.file, outcome.reason);
        if (!read) return Refused(outcome.reason);
        text = hx::Bstr(*read);
    }
    hx::Bstr written;
    std::string codes;
    const hosting::CalledLast answer = Exchange(request, text, written, codes);
    CoFreeUnusedLibraries();

    if (FAILED(answer.result)) {
        outcome = Refused(std::string(answer.operation) + " answered " + NamedResult(answer.result) +
                          hosting::HowToRegister(answer.result));
        if (!codes.empty()) outcome.reason += "\nError codes:\n" + codes;
    }
    if (json) {
        Json document = {{"operation", answer.operation},
                         {"hresult", HexResult(answer.result)},
                         {"name", std::string(hx::HresultName(answer.result))}};
        if (!codes.empty()) document["error"] = {{"codes", codes}};
        if (!written.is_null()) document["document"] = hx::ToUtf8(written.view());
        outcome.output = document.dump() + "\n";
    } else if (request.write) {
        outcome.output = hx::ToUtf8(written.view());
    } else {
        outcome.output = HexResult(answer.result) + " " + std::string(hx::HresultName(answer.result)) + "\n";
    }
    return outcome;
}

}  // namespace hxctl
