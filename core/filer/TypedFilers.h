// Leads the typed operations of both filer interfaces to one template each, which a filer writes for all
// types.
#pragma once

#include "core/filer/IInFilerTagged.h"
#include "core/filer/IOutFilerTagged.h"

namespace hx {

// Self has: template <class T> bool ReadValue(std::wstring_view tag, T& value, const T& fallback).
template <class Self>
class TypedReads : public IInFilerTagged {
public:
    bool Read(std::wstring_view tag, std::wstring& value, const std::wstring& fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, char& value, char fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, double& value, double fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, float& value, float fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, bool& value, bool fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, uint8_t& value, uint8_t fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, uint16_t& value, uint16_t fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, int16_t& value, int16_t fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, uint64_t& value, uint64_t fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, uint32_t& value, uint32_t fallback) final {
        return Forward(tag, value, fallback);
    }
    bool Read(std::wstring_view tag, int32_t& value, int32_t fallback) final {
        return Forward(tag, value, fallback);
    }

private:
    template <class T>
    bool Forward(std::wstring_view tag, T& value, const T& fallback) {
        return static_cast<Self*>(this)->ReadValue(tag, value, fallback);
    }
};

// Self has: template <class T, class Value> bool WriteValue(std::wstring_view tag, Value value); T names the
// type.
template <class Self>
class TypedWrites : public IOutFilerTagged {
public:
    using IOutFilerTagged::Write;
    bool Write(std::wstring_view tag, char value) final { return Forward<char>(tag, value); }
    bool Write(std::wstring_view tag, std::wstring_view value) final {
        return Forward<std::wstring>(tag, value);
    }
    bool Write(std::wstring_view tag, double value) final { return Forward<double>(tag, value); }
    bool Write(std::wstring_view tag, float value) final { return Forward<float>(tag, value); }
    bool Write(std::wstring_view tag, bool value) final { return Forward<bool>(tag, value); }
    bool Write(std::wstring_view tag, uint8_t value) final { return Forward<uint8_t>(tag, value); }
    bool Write(std::wstring_view tag, uint16_t value) final { return Forward<uint16_t>(tag, value); }
    bool Write(std::wstring_view tag, int16_t value) final { return Forward<int16_t>(tag, value); }
    bool Write(std::wstring_view tag, uint64_t value) final { return Forward<uint64_t>(tag, value); }
    bool Write(std::wstring_view tag, uint32_t value) final { return Forward<uint32_t>(tag, value); }
    bool Write(std::wstring_view tag, int32_t value) final { return Forward<int32_t>(tag, value); }

private:
    template <class T, class Value>
    bool Forward(std::wstring_view tag, Value value) {
        return static_cast<Self*>(this)->template WriteValue<T>(tag, value);
    }
};

}  // namespace hx
