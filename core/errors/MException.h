// The one thrown type: a chain of error records, oldest first. Thrown by Throw and ThrowWithCause, caught by
// the handlers of pages and component entry points. Not shared between threads.
#pragma once

#include <exception>
#include <list>
#include <memory>
#include <string>
#include <string_view>

#include "core/errors/MError.h"

namespace hx {

class MException : public std::exception {
public:
    using Chain = std::list<std::unique_ptr<const MError>>;

    MException() = default;
    // A record whose description is the chain of a remote failure expands into that chain, followed by
    // itself.
    explicit MException(const MError& error) { AppendChained(error); }
    // Clones of the records.
    MException(const MException& other);
    MException& operator=(const MException&) = delete;

    const char* what() const noexcept override { return "Unknown exception"; }

    const Chain& GetChain() const { return m_chain; }

    // Appends a clone; a record that cannot be cloned is not appended.
    void Append(const MError& error);
    // Appends the records that the error's description holds as a chain document, if it does; then the error.
    void AppendChained(const MError& error);

    // True if some record is of the same kind and has the same code.
    bool Contains(const MError& kind_and_code) const;

    // Group `tag` with a group "Error" for each record. Reading replaces the chain by plain MError records
    // and stops at the first that cannot be read; if the group cannot be opened the chain stays and the
    // result is false.
    bool Write(MFilerTaggedPair& filer, std::wstring_view tag) const;
    bool Read(MFilerTaggedPair& filer, std::wstring_view tag);

private:
    Chain m_chain;
};

// The codes and parameters of a chain for people who look for the cause: newest record first, one a line, as
// `Class.Method:Error ($name="value", $name="value")`. Records without a code are left out.
std::wstring ErrorCodesText(const MException& exception);

// The names in a document that carries a chain.
inline constexpr std::wstring_view kChainRoot = L"ExceptionChain";
inline constexpr std::wstring_view kChainGroup = L"Exception";

// The chain as a document of its own, as it crosses a component boundary, and back: false if `document` is
// none, and the exception is then unchanged.
std::wstring ChainDocument(const MException& exception);
bool ReadChainDocument(std::wstring_view document, MException& exception);

}  // namespace hx
