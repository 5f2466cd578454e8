// How logging is configured: the values of a key in the machine's part of the registry. Every value that is
// asked for and not there is written with its default, so that the configuration documents itself; if it
// cannot be written, the default is used all the same. A registry that fails is asked no more: each question
// might wait for as long as the first. One thread at a time.
#pragma once

#include <string_view>

#include "core/filer/IInFilerTaggedRegistry.h"
#include "core/filer/IOutFilerTaggedRegistry.h"

namespace hx {

// Below the company's key.
inline constexpr std::wstring_view kLoggingKeyPath = L"HXAPI4\\Logging";

class LoggingValues {
public:
    static constexpr std::wstring_view kCompanyKey = IFilerTaggedRegistryBase::kCompanyKey;

    enum class Missing { kWriteBack, kLeave };

    // `company` is the key's name above `key_path`; empty: the suite's own.
    LoggingValues(std::wstring_view key_path, std::wstring_view company,
                  Missing missing = Missing::kWriteBack)
        : m_in(key_path, true), m_out(key_path, true), m_missing(missing) {
        m_in.SetRoot(RegistryRoot::kLocalMachine);
        m_in.SetCompanyKey(company);
        m_out.SetRoot(RegistryRoot::kLocalMachine);
    }

    // The value, or else the default, which is written only where nothing stands: a value of another type, or
    // one that cannot be read now, is somebody's all the same.
    template <class T>
    T Get(std::wstring_view name, const T& fallback) {
        T value = GetUnlessMissing(name, fallback);
        if (m_is_usable && m_missing == Missing::kWriteBack &&
            m_in.LastResult() == RegistryResult::kNotFound && !m_out.Write(name, fallback)) {
            m_missing = Missing::kLeave;
            m_is_usable = m_out.LastResult() == RegistryResult::kAccessDenied;
        }
        return value;
    }
    // The same for a default that holds today only: it is never written.
    template <class T>
    T GetUnlessMissing(std::wstring_view name, const T& fallback) {
        if (!m_is_usable) return fallback;
        T value{};
        m_is_usable = m_in.Read(name, value, fallback) || m_in.LastResult() == RegistryResult::kDone ||
                      m_in.LastResult() == RegistryResult::kNotFound;
        return value;
    }

private:
    IInFilerTaggedRegistry m_in;
    IOutFilerTaggedRegistry m_out;
    Missing m_missing;
    bool m_is_usable = true;
};

}  // namespace hx
