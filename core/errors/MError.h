// The error record: where and why something failed, as one code ("Class.Method:ErrorName") with named text
// parameters. Raised through an MErrorLocation, carried by an MException, turned into the user's words
// elsewhere. Not shared between threads.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "core/errors/MDynObject.h"
#include "core/filer/MFilerTaggedPair.h"

namespace hx {

class MError : public MDynObject {
public:
    using Parameters = std::map<std::wstring, std::wstring, std::less<>>;  // sorted by name

    MError() = default;
    explicit MError(std::wstring code) : m_code(std::move(code)) {}

    const MDynClass& GetDynClass() const override { return Class(); }
    std::unique_ptr<MDynObject> Clone() const override { return std::make_unique<MError>(*this); }
    std::unique_ptr<MDynObject> CreateNew() const override { return std::make_unique<MError>(); }

    // Group `tag` with the string "Code" and a group "Parameter" for each parameter. A missing code makes the
    // read fail, after the parameters were read and the group was left.
    virtual bool Read(MFilerTaggedPair& filer, std::wstring_view tag);
    virtual bool Write(MFilerTaggedPair& filer, std::wstring_view tag) const;
    // The code, or "Unspecified error".
    virtual std::wstring GetMessage() const;
    // What the failing component said; empty for errors of our own.
    virtual std::wstring GetDescription() const { return {}; }

    const std::wstring& GetCode() const { return m_code; }
    const Parameters& GetParameters() const { return m_parameters; }

    // The first value of a name stays.
    void AddParameter(std::wstring_view name, std::wstring_view value);
    // Decimal, or eight hexadecimal digits followed by "h".
    void AddParameter(std::wstring_view name, uint32_t value, bool hexadecimal = false);

    static const MDynClass& Class();

private:
    std::wstring m_code;
    Parameters m_parameters;
};

// Its message is "Out of memory".
class MErrorOutOfMemory : public MError {
public:
    using MError::MError;
    const MDynClass& GetDynClass() const override { return Class(); }
    std::unique_ptr<MDynObject> Clone() const override { return std::make_unique<MErrorOutOfMemory>(*this); }
    std::unique_ptr<MDynObject> CreateNew() const override { return std::make_unique<MErrorOutOfMemory>(); }
    std::wstring GetMessage() const override { return L"Out of memory"; }
    static const MDynClass& Class();
};

}  // namespace hx
