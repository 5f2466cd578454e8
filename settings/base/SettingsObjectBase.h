// Base of the settings records. Held by owning records and settings objects; on their thread.
#pragma once

#include "core/records/RecordFields.h"

namespace hx {

class SettingsObjectBase {
public:
    // Strict, a value that is missing in an element that is there keeps the record's own and makes the read
    // fail; otherwise it is taken from the defaults and does not. A record that holds others passes the flag
    // on to them first.
    virtual void SetStrict(bool strict) { m_strict = strict; }
    virtual bool IsStrict() const { return m_strict; }

protected:
    SettingsObjectBase() = default;
    SettingsObjectBase(const SettingsObjectBase&) = default;
    SettingsObjectBase& operator=(const SettingsObjectBase&) = default;
    ~SettingsObjectBase() = default;

    // Reads the rows that `version` has by that rule; every one is attempted.
    template <class R>
    bool ReadByStrictRule(R& record, const R& defaults, MFilerTaggedPair& filer, int64_t version) const {
        return ReadByStrictRule(R::kType.fields, record, defaults, filer, version);
    }
    template <class R>
    bool ReadByStrictRule(std::span<const Field> fields, R& record, const R& defaults,
                          MFilerTaggedPair& filer, int64_t version) const {
        const bool all =
            ReadFields(fields, &record, m_strict ? &record : &defaults, filer, version, ReadRule::kAll);
        return all || !m_strict;
    }

private:
    bool m_strict = true;
};

}  // namespace hx
