// The words that readers and writers of tagged XML share.
#pragma once

#include <string_view>

namespace hx {

// The root element of a settings document.
inline constexpr std::wstring_view kTaggedXmlRoot = L"MFilerTaggedXml";

// The attribute that names a value's type. An element with it is a value, one without is a group.
inline constexpr std::wstring_view kTypeAttribute = L"type";

inline constexpr std::wstring_view kNamespaceAttribute = L"xmlns";

// The processing instruction at the start, without its brackets.
inline constexpr std::wstring_view kXmlDeclaration = L"xml version=\"1.0\" encoding=\"UTF-8\"";

}  // namespace hx
