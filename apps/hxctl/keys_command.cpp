// hxctl keys: the catalog of registry values, and the values themselves.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <type_traits>
#include <vector>

#include "apps/hxctl/command.h"
#include "apps/hxctl/json.h"
#include "core/filer/IOutFilerTaggedRegistry.h"
#include "core/keys/MRegistryKeyLib.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using namespace Orvel::RegistryKeys;

// One row for each kind of value: its name, what is taken for one, how it is read from text and shown.
template <class T>
struct Kind {
    // Integers and numbers: all of the text, without regard to the locale.
    static bool Parse(const std::string& text, T& value) {
        const char* const end = text.data() + text.size();
        const auto [behind, error] = std::from_chars(text.data(), end, value);
        if constexpr (std::is_floating_point_v<T>) {
            if (!std::isfinite(value)) return false;
        }
        return error == std::errc() && behind == end;
    }
    static std::string Show(T value) {
        char text[32];
        return {text, std::to_chars(std::begin(text), std::end(text), value).ptr};
    }
    // A number that JSON has no form for is given as its text.
    static Json ToJson(T value) {
        return std::isfinite(static_cast<double>(value)) ? Json(value) : Json(Show(value));
    }
    static constexpr const char* kName = std::is_integral_v<T> ? "integer" : "double";
    static constexpr const char* kAccepts = std::is_floating_point_v<T> ? "a number such as -1.5e3"
                                            : std::is_signed_v<T>
                                                ? "an integer from -2147483648 to 2147483647"
                                                : "an integer from 0 to 4294967295";
};

template <>
struct Kind<bool> {
    static bool Parse(const std::string& text, bool& value) {
        value = text == "true" || text == "1";
        return value || text == "false" || text == "0";
    }
    static std::string Show(bool value) { return value ? "true" : "false"; }
    static Json ToJson(bool value) { return value; }
    static constexpr const char* kName = "boolean";
    static constexpr const char* kAccepts = "true, false, 1 or 0";
};

template <>
struct Kind<std::wstring> {
    static bool Parse(const std::string& text, std::wstring& value) {
        auto wide = hx::FromUtf8(text);
        if (!wide) return false;
        value = *std::move(wide);
        return true;
    }
    static std::string Show(const std::wstring& value) { return hx::ToUtf8(value); }
    static Json ToJson(const std::wstring& value) { return Show(value); }
    static constexpr const char* kName = "string";
    static constexpr const char* kAccepts = "a text in UTF-8";
};

// Calls `action` with a value of the C++ type that goes with the type code. Among the integers those of code
// 0 may be negative, as offsets are; the others count something.
template <class Action>
auto WithType(uint64_t type, Action action) {
    switch (type) {
        case kString:
            return action(std::wstring());
        case kDouble:
            return action(0.0);
        case kBoolean:
            return action(false);
        case kInteger0:
            return action(int32_t{});
        default:
            return action(uint32_t{});
    }
}

std::string TypeName(uint64_t type) {
    return WithType(type, []<class T>(T) -> std::string { return Kind<T>::kName; });
}

Outcome NoSuchKey(uint32_t id) {
    return {kUsage,
            {},
            "no key " + std::to_string(id) + ": the ids are 0 to " +
                std::to_string(MRegistryKeyLib::kKeyCount - 1)};
}

std::vector<std::string> FlagNames(const RegistryKeyRow& row) {
    std::vector<std::string> names;
    if ((row.flags & kCreate) != 0) names.emplace_back("create");
    if ((row.flags & kView32) != 0) names.emplace_back("view32");
    return names;
}

// One line of the list; what is wider than its column moves the rest of the line.
std::string Line(std::initializer_list<std::string> cells) {
    constexpr size_t kWidths[] = {3, 9, 8, 5, 6, 78, 0};
    std::string line;
    const size_t* width = kWidths;
    for (const std::string& cell : cells) {
        line += cell + std::string(*width - std::min(*width, cell.size()), ' ');
        line += ++width == std::end(kWidths) ? "\n" : "  ";
    }
    return line;
}

// Why the store did not take a value: the element does not say, so the store is asked to take it once more.
template <class T>
std::string WhyNotWritten(const RegistryKeyRow& row, const T& value) {
    hx::RegistryResult result = hx::RegistryResult::kInvalid;
    if (const auto root = RootOf(row)) {
        hx::IOutFilerTaggedRegistry filer(row.place.path, (row.flags & kView32) != 0);
        filer.SetRoot(*root);
        filer.Write(row.value_name, value);
        result = filer.LastResult();
    }
    switch (result) {
        case hx::RegistryResult::kAccessDenied:
            return "access denied";
        case hx::RegistryResult::kDiskFull:
            return "the disk is full";
        case hx::RegistryResult::kBusy:
            return "the store is busy";
        case hx::RegistryResult::kDamaged:
            return "the store is damaged";
        default:
            return "the store refused it";
    }
}

}  // namespace

Outcome RunKeysList(bool json) {
    Json list = Json::array();
    std::string lines = Line({"ID", "TYPE", "CATEGORY", "GROUP", "FLAGS", "PATH", "DESCRIPTION"});
    for (const RegistryKeyRow& row : MRegistryKeyLib::Rows()) {
        const IRegistryKeyElementBase& key = MRegistryKeyLib::GetRegistryKey(row.id);
        const std::string path = hx::ToUtf8(key.GetFullPath());
        const std::string description = hx::ToUtf8(key.GetDescription());
        if (json) {
            list.push_back({{"id", row.id},
                            {"fullPath", path},
                            {"type", TypeName(key.GetType())},
                            {"typeCode", key.GetType()},
                            {"category", key.GetCategory()},
                            {"group", key.GetKeyGroup()},
                            {"flags", FlagNames(row)},
                            {"description", description}});
        } else {
            std::string flags;
            for (const std::string& name : FlagNames(row)) flags += (flags.empty() ? "" : ",") + name;
            lines +=
                Line({std::to_string(row.id), std::to_string(key.GetType()) + " " + TypeName(key.GetType()),
                      std::to_string(key.GetCategory()), std::to_string(key.GetKeyGroup()),
                      flags.empty() ? "-" : flags, path, description});
        }
    }
    return {kDone, json ? list.dump(2) + "\n" : lines, {}};
}

Outcome RunKeysGet(uint32_t id, bool json) {
    if (id >= MRegistryKeyLib::kKeyCount) return NoSuchKey(id);
    const IRegistryKeyElementBase& key = MRegistryKeyLib::GetRegistryKey(id);
    return WithType(key.GetType(), [&]<class T>(T value) -> Outcome {
        const bool is_set = key.Get(value, T());
        Outcome outcome;
        if (json) {
            const Json answer = {{"id", id}, {"value", is_set ? Kind<T>::ToJson(value) : Json()}};
            outcome.output = answer.dump() + "\n";
        } else if (is_set) {
            outcome.output = Kind<T>::Show(value) + "\n";
        }
        if (is_set) return outcome;
        std::wstring text;
        uint32_t number = 0;
        const bool is_other = key.Get(text, {}) || key.Get(number, 0);
        return Refused("key " + std::to_string(id) + (is_other ? " holds no " : " is not set: no ") +
                           Kind<T>::kName + " at " + hx::ToUtf8(key.GetFullPath()),
                       std::move(outcome.output));
    });
}

Outcome RunKeysSet(uint32_t id, const std::string& text, bool json) {
    if (id >= MRegistryKeyLib::kKeyCount) return NoSuchKey(id);
    const IRegistryKeyElementBase& key = MRegistryKeyLib::GetRegistryKey(id);
    const RegistryKeyRow& row = MRegistryKeyLib::Rows()[id];
    return WithType(key.GetType(), [&]<class T>(T value) -> Outcome {
        const std::string name = "key " + std::to_string(id);
        if (!Kind<T>::Parse(text, value)) {
            return Refused(name + " takes " + Kind<T>::kAccepts + ", not \"" + text + "\"");
        }
        if (!key.Set(value)) {
            return Refused(name + " is not written: " + WhyNotWritten(row, value));
        }
        const std::string written = hx::ToUtf8(FullPath(row, kOrvel));
        const std::string read = hx::ToUtf8(key.GetFullPath());
        // Numbers are kept with fewer digits than may be given.
        if (read == written) key.Get(value, T(value));
        if (json) {
            const Json answer = {
                {"id", id}, {"value", Kind<T>::ToJson(value)}, {"written", written}, {"read", read}};
            return {kDone, answer.dump() + "\n", {}};
        }
        std::string answer = written + " = " + Kind<T>::Show(value) + "\n";
        if (read != written) answer += "The key is read from " + read + ", which is unchanged.\n";
        return {kDone, answer, {}};
    });
}

}  // namespace hxctl
