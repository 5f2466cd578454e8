#include "platform/ui/qt/appearance.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QProxyStyle>
#include <cmath>

#include "platform/ui/qt/conversions.h"

namespace hx::ui {

namespace {

struct Tone {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr Tone kTones[] = {
    {QPalette::Window, 0xf0f0f0, 0x3c3c41},      {QPalette::WindowText, 0x000000, 0xf2f2f2},
    {QPalette::Base, 0xffffff, 0x19191b},        {QPalette::AlternateBase, 0xf7f7f7, 0x252528},
    {QPalette::Text, 0x000000, 0xf2f2f2},        {QPalette::PlaceholderText, 0x6d6d6d, 0x9a9a9a},
    {QPalette::Button, 0xf0f0f0, 0x55555b},      {QPalette::ButtonText, 0x000000, 0xf2f2f2},
    {QPalette::BrightText, 0xffffff, 0xffffff},  {QPalette::Light, 0xffffff, 0x6c6c73},
    {QPalette::Midlight, 0xf7f7f7, 0x5c5c62},    {QPalette::Mid, 0xb8b8b8, 0x242426},
    {QPalette::Dark, 0x9f9f9f, 0x1b1b1d},        {QPalette::Shadow, 0x767676, 0x0e0e0f},
    {QPalette::Highlight, 0x0067c0, 0x3d8fd9},   {QPalette::HighlightedText, 0xffffff, 0x000000},
    {QPalette::Link, 0x0067c0, 0x6cb4f0},        {QPalette::LinkVisited, 0x7a3b9b, 0xc39be0},
    {QPalette::ToolTipBase, 0xffffe1, 0x3a3a3e}, {QPalette::ToolTipText, 0x000000, 0xf2f2f2},
};

constexpr Tone kDisabledTones[] = {
    {QPalette::WindowText, 0x6d6d6d, 0xa0a0a0}, {QPalette::Text, 0x6d6d6d, 0xa0a0a0},
    {QPalette::ButtonText, 0x6d6d6d, 0xa0a0a0}, {QPalette::Base, 0xf0f0f0, 0x36363a},
    {QPalette::Highlight, 0xb0b0b0, 0x5a5a5e},  {QPalette::HighlightedText, 0x000000, 0xf2f2f2},
};

// As the style's own palette, not one that is set for the application: of that one the toolkit gives each
// widget a copy, which counts as a new palette, and for each palette it keeps names of pictures for ever.
class OwnStyle final : public QProxyStyle {
public:
    explicit OwnStyle(bool dark) : QProxyStyle(QStringLiteral("Fusion")), m_dark(dark) {}

    using QProxyStyle::polish;
    void polish(QPalette& palette) override {
        for (const Tone& tone : kTones) palette.setColor(tone.role, QColor(m_dark ? tone.dark : tone.light));
        for (const Tone& tone : kDisabledTones) {
            palette.setColor(QPalette::Disabled, tone.role, QColor(m_dark ? tone.dark : tone.light));
        }
    }

private:
    const bool m_dark;
};

}  // namespace

void UseOwnAppearance(bool dark) {
    QApplication::setStyle(new OwnStyle(dark));
    QApplication::setPalette({});
}

QFont DialogFontOf(uint32_t points) {
    constexpr double kDotsPerPoint = 96.0 / 72.0;
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(std::lround((points != 0 ? points : kDialogPoints) * kDotsPerPoint)));
    // Widths are the same at every scale, and a dialog is laid out alike.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

FontUnits UnitsOf(const QFont& font) {
    const QFontMetrics metrics(font);
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    return {(metrics.horizontalAdvance(letters) / 26 + 1) / 2, metrics.height()};
}

Size ExtentOf(const QFont& font, std::wstring_view text) {
    const QFontMetrics metrics(font);
    return {metrics.horizontalAdvance(ToQt(text)), metrics.height()};
}

Colour ColourIn(const QPalette& palette, SystemColour colour) {
    const auto active = [&](QPalette::ColorRole role) {
        return FromQt(palette.color(QPalette::Active, role));
    };
    switch (colour) {
        case SystemColour::window:
            return active(QPalette::Base);
        case SystemColour::window_text:
            return active(QPalette::Text);
        case SystemColour::gray_text:
            return FromQt(palette.color(QPalette::Disabled, QPalette::Text));
        case SystemColour::highlight:
            return active(QPalette::Highlight);
        case SystemColour::highlight_text:
            return active(QPalette::HighlightedText);
        case SystemColour::button_face:
            return active(QPalette::Window);
        case SystemColour::button_text:
            return active(QPalette::WindowText);
    }
    return {};
}

}  // namespace hx::ui
