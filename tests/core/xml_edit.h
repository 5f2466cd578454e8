// What the tests of edits share.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/core/xml_tree.h"

// Goes to an element by the names on the way: the last one is the main element; a "/" at the end enters it.
inline void Go(hx::MXmlDocument& document, std::wstring_view path) {
    document.ResetPosition();
    while (!path.empty()) {
        const size_t end = std::min(path.find(L'/'), path.size());
        ASSERT_TRUE(document.FindElement(path.substr(0, end)));
        path.remove_prefix(end);
        if (!path.empty()) {
            ASSERT_TRUE(document.EnterElement());
            path.remove_prefix(1);
        }
    }
}

inline void ExpectIndexOfText(hx::MXmlDocument& document) {
    hx::MXmlDocument fresh;
    fresh.Parse(document.GetText());
    EXPECT_EQ(Places(document), Places(fresh)) << testing::PrintToString(document.GetText());
}
