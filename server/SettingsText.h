// The text of a settings object: a document with its one record, under the record's own element. Used by the
// settings objects, on their thread. What the record raises, and std::bad_alloc, passes.
#pragma once

#include <string>
#include <utility>

#include "core/filer/MFilerTaggedPair.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/filer/TaggedXml.h"
#include "platform/com/bstr.h"

namespace hx {

// The record becomes what the text says; E_FAIL if it says it badly, and the record may have changed. A null
// string is a text without a document.
template <class R>
HRESULT ReadSettingsText(BSTR xml, R& record) {
    std::wstring text;
    if (xml != nullptr) text.assign(xml, SysStringLen(xml));
    MInFilerTaggedXml reader(std::move(text), kTaggedXmlRoot);
    MFilerTaggedPair filer(reader);
    return record.ReadTagged(filer, R::kElement, R()) ? S_OK : E_FAIL;
}

// A new string, [caller owns]; `*xml` stays as it is on failure: E_FAIL, E_OUTOFMEMORY.
template <class R>
HRESULT WriteSettingsText(const R& record, BSTR* xml) {
    MOutFilerTaggedXml writer(kTaggedXmlRoot);
    MFilerTaggedPair filer(writer);
    if (!record.WriteTagged(filer, R::kElement)) return E_FAIL;
    const std::wstring text = writer.TakeText();
    if (text.empty()) return E_FAIL;
    BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (copy == nullptr) return E_OUTOFMEMORY;
    *xml = copy;
    return S_OK;
}

}  // namespace hx
