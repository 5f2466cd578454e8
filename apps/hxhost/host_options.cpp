#include "apps/hxhost/host_options.h"

#include <CLI/CLI.hpp>
#include <charconv>

#include "platform/system/locale_data.h"

namespace hxhost {
namespace {

constexpr int kUsage = 2;
constexpr double kSmallestScale = 1;
constexpr double kLargestScale = 4;
constexpr int32_t kLongestSide = 8192;

// "1280x720"
std::optional<hx::ui::Size> ParseSize(const std::string& text) {
    hx::ui::Size size;
    const char* const end = text.data() + text.size();
    const auto [cross, width_error] = std::from_chars(text.data(), end, size.width);
    if (width_error != std::errc() || cross == end || *cross != 'x') return std::nullopt;
    const auto [behind, height_error] = std::from_chars(cross + 1, end, size.height);
    const auto is_length = [](int32_t length) { return length >= 1 && length <= kLongestSide; };
    const bool good =
        height_error == std::errc() && behind == end && is_length(size.width) && is_length(size.height);
    return good ? std::optional(size) : std::nullopt;
}

std::string CheckLocale(const std::string& tag) {
    return hx::LcidOf(tag) ? std::string() : "no locale \"" + tag + "\"";
}

std::string CheckSize(const std::string& text) {
    return ParseSize(text) ? std::string() : "WIDTHxHEIGHT, from 1x1 to 8192x8192, not \"" + text + "\"";
}

}  // namespace

std::optional<HostOptions> ReadOptions(int argc, char** argv, int& exit) {
    HostOptions options;
    std::string size;
    CLI::App app("The hardware configuration of a measuring application, with a simulated scanner", "hxhost");
    app.add_option("--locale", options.locale, "the language, as de-DE")
        ->capture_default_str()
        ->check(CheckLocale);
    app.add_flag("--dark", options.dark, "dark colours");
    app.add_option("--scale", options.scale, "of the screen: 1.5 is 150 %; left out: the desktop's")
        ->check(CLI::Range(kSmallestScale, kLargestScale));
    app.add_option("--model", options.model,
                   "of the scanner, one of `hxctl scanner list`; left out: that of the last time");
    auto* const picture = app.add_option(
        "--picture", options.picture,
        "saves a picture of the window (PNG) as soon as its preview shows something, and ends; "
        "needs no screen");
    app.add_option("--size", size, "of the picture at 100 %, as 1280x720")->needs(picture)->check(CheckSize);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        exit = app.exit(error) == 0 ? 0 : kUsage;
        return std::nullopt;
    }
    if (!size.empty()) options.size = ParseSize(size);
    return options;
}

}  // namespace hxhost
