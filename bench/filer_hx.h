// Records through the tagged filers, as the product's own records go.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "bench/tag.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/filer/TaggedXml.h"

namespace hx::bench {

class HxReader {
public:
    explicit HxReader(std::wstring text) : m_filer(std::move(text), kTaggedXmlRoot) {}

    void Begin(Tag tag) { m_right &= m_filer.BeginGroup(tag.wide); }
    void End() { m_right &= m_filer.EndGroup(); }
    template <class T>
    void Value(Tag tag, T& value) {
        m_right &= m_filer.Read(tag.wide, value, T{});
    }

    bool Right() const { return m_right; }

private:
    MInFilerTaggedXml m_filer;
    bool m_right = true;
};

class HxWriter {
public:
    void Begin(Tag tag) { m_right &= m_filer.BeginGroup(tag.wide); }
    void End() { m_right &= m_filer.EndGroup(); }
    template <class T>
    void Value(Tag tag, const T& value) {
        m_right &= m_filer.Write(tag.wide, value);
    }

    bool Right() const { return m_right; }
    std::wstring TakeText() { return m_filer.TakeText(); }

private:
    MOutFilerTaggedXml m_filer{kTaggedXmlRoot};
    bool m_right = true;
};

}  // namespace hx::bench
