#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <type_traits>
#include <vector>

#include "core/filer/IInFilerTaggedRegistry.h"
#include "core/filer/IOutFilerTaggedRegistry.h"
#include "fuzz/fuzz_target.h"
#include "platform/registry/registry.h"
#include "platform/system/case_fold.h"

namespace fuzz {
namespace {

template <class T>
T Value(Input& input) {
    if constexpr (std::is_same_v<T, std::wstring>) {
        return input.Text(40);
    } else if constexpr (std::is_same_v<T, bool>) {
        return (input.Byte() & 1) != 0;
    } else {
        uint64_t bits = 0;
        for (size_t i = 0; i < sizeof(T); ++i) bits = bits << 8 | input.Byte();
        if constexpr (std::is_same_v<T, double>) return std::bit_cast<double>(bits);
        if constexpr (std::is_same_v<T, float>) return std::bit_cast<float>(static_cast<uint32_t>(bits));
        return static_cast<T>(bits);
    }
}

// What has to lie in the registry, as the standard library formats it.
template <class T>
hx::RegistryValue Stored(const T& value) {
    if constexpr (std::is_same_v<T, std::wstring>) {
        return value;
    } else if constexpr (std::is_floating_point_v<T>) {
        char text[40];
        std::snprintf(text, sizeof text, std::is_same_v<T, float> ? "%e" : "%.14e", double{value});
        return std::wstring(text, text + std::char_traits<char>::length(text));
    } else if constexpr (std::is_same_v<T, char>) {
        return uint32_t{static_cast<unsigned char>(value)};
    } else {
        return static_cast<uint32_t>(value);
    }
}

// Equal in all digits that are kept.
template <class T>
bool SameAsKept(const T& value, const T& read) {
    if constexpr (std::is_floating_point_v<T>) {
        if (std::isnan(value)) return std::isnan(read);
        // The largest numbers round up to more than there is.
        if (std::isinf(read)) return std::abs(value) > std::numeric_limits<T>::max() * T(0.999999);
        const T digits = std::is_same_v<T, float> ? T(1e-6) : T(1e-14);
        return std::abs(value - read) <= std::abs(value) * digits + std::numeric_limits<T>::denorm_min();
    } else {
        return value == read;
    }
}

// Two filers that stand in the same group, and what the registry must hold.
class FilerPair {
public:
    explicit FilerPair(Input& input)
        : m_input(input),
          m_flags(input.Byte()),
          m_base(input.Text(40)),
          m_root((m_flags & 1) != 0 ? hx::RegistryRoot::kLocalMachine : hx::RegistryRoot::kCurrentUser),
          m_reader(m_base, (m_flags & 2) != 0, (m_flags & 4) != 0),
          m_writer(m_base, (m_flags & 2) != 0) {
        hx::SetRegistry(m_registry);
        m_reader.SetRoot(m_root);
        m_writer.SetRoot(m_root);
    }
    ~FilerPair() { hx::SetRegistry(nullptr); }

    void Run() {
        while (!m_input.Empty()) Step();
        for (const auto& [place, value] : m_expected) {
            hx::RegistryValue stored;
            const auto found = m_registry->QueryValue(m_root, place.first, place.second, stored);
            Require(found == hx::RegistryResult::kDone && stored == value, "what was written last is there");
        }
    }

private:
    using Place = std::pair<std::wstring, std::wstring>;  // key and value name, without case

    void Step() {
        const uint8_t operation = m_input.Byte();
        const std::wstring name = m_input.Text(12);
        switch (operation % 13) {
            case 0:
                return Exchange<std::wstring>(operation, name);
            case 1:
                return Exchange<char>(operation, name);
            case 2:
                return Exchange<double>(operation, name);
            case 3:
                return Exchange<float>(operation, name);
            case 4:
                return Exchange<bool>(operation, name);
            case 5:
                return Exchange<uint8_t>(operation, name);
            case 6:
                return Exchange<uint16_t>(operation, name);
            case 7:
                return Exchange<int16_t>(operation, name);
            case 8:
                return Exchange<uint32_t>(operation, name);
            case 9:
                return Exchange<int32_t>(operation, name);
            case 10:
                m_groups.push_back(name);
                Require(m_reader.BeginGroup(name) && m_writer.BeginGroup(name), "a group is always entered");
                return;
            case 11:
                if (!m_groups.empty()) m_groups.pop_back();
                Require(m_reader.EndGroup() && m_writer.EndGroup(), "a group is always left");
                return;
            default:
                uint64_t number = 0;
                std::wstring document = name;
                Require(!m_writer.Write(name, uint64_t{1}) && !m_writer.InsertDocument(name, name) &&
                            !m_writer.AddComment(name) && !m_reader.Read(name, number, 7) && number == 7 &&
                            !m_reader.ExtractGroup(name, document) && document.empty(),
                        "what the registry cannot keep is refused");
        }
    }

    // Reads, or writes and then reads.
    template <class T>
    void Exchange(uint8_t operation, const std::wstring& name) {
        const Place place{Key(), hx::FoldCase(name)};
        const T fallback{};
        T read = fallback;
        if (operation < 128) {
            const T value = Value<T>(m_input);
            Require(m_writer.Write(name, value), "a value is written");
            m_expected[place] = Stored(value);
            Require(m_reader.Read(name, read, fallback) && SameAsKept(value, read), "it reads back");
            return;
        }
        const bool is_read = m_reader.Read(name, read, fallback);
        const auto found = m_expected.find(place);
        const bool fits = found != m_expected.end() && found->second.index() == Stored(fallback).index();
        if constexpr (std::is_floating_point_v<T>) {
            Require(fits || !is_read, "a number is read from text alone");
        } else {
            Require(is_read == fits, "a value is read if it is there and fits");
        }
        Require(is_read || read == fallback, "what is not read is the fallback");
    }

    std::wstring Key() const {
        const bool view = (m_flags & 3) == 3;
        std::wstring path = view ? L"Software\\Wow6432Node\\Orvel\\" : L"Software\\Orvel\\";
        path += m_base;
        for (const std::wstring& group : m_groups) path += L'\\' + group;
        // Empty names are none.
        std::wstring key;
        for (const wchar_t c : hx::FoldCase(path)) {
            if (c != L'\\' || !key.ends_with(L'\\')) key += c;
        }
        if (key.ends_with(L'\\')) key.pop_back();
        return key;
    }

    Input& m_input;
    const uint8_t m_flags;
    const std::wstring m_base;
    const hx::RegistryRoot m_root;
    const std::shared_ptr<hx::IRegistry> m_registry = hx::MakeMemoryRegistry();
    hx::IInFilerTaggedRegistry m_reader;
    hx::IOutFilerTaggedRegistry m_writer;
    std::vector<std::wstring> m_groups;
    std::map<Place, hx::RegistryValue> m_expected;
};

}  // namespace

void RegistryFilers(Input input) {
    FilerPair(input).Run();
}

}  // namespace fuzz
