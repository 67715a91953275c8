#include "app/Theme.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>
#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr double kReadable = 4.5;
constexpr std::uint32_t kDarkButtonFace = 6052956;

struct Tone {
    int number;
    std::uint32_t background;
};

constexpr Tone kTones[] = {{1, 3343929}, {2, 16183},    {3, 0x0F3F00}, {4, 3869700},
                           {5, 11840},   {6, 0x400037}, {8, 0x202020}, {9, 4079166}};
constexpr std::uint32_t kOtherTone = 2894867;

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor& top, const QColor& ground, double share) {
    const auto channel = [share](int a, int b) {
        return static_cast<int>(std::lround(a * share + b * (1 - share)));
    };
    return {channel(top.red(), ground.red()), channel(top.green(), ground.green()),
            channel(top.blue(), ground.blue())};
}

}  // namespace

QColor ColorFromStored(std::uint32_t stored) {
    return {static_cast<int>(stored & 0xFF), static_cast<int>(stored >> 8 & 0xFF),
            static_cast<int>(stored >> 16 & 0xFF)};
}

std::uint32_t StoredFromColor(const QColor& color) {
    return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

double ContrastRatio(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor ReadableOn(const QColor& color, const QColor& ground) {
    const bool towardsWhite = ContrastRatio(Qt::white, ground) > ContrastRatio(Qt::black, ground);
    const QColor end = towardsWhite ? Qt::white : Qt::black;
    for (int step = 0; step < 20; ++step) {
        const QColor candidate = mixed(end, color, step / 20.0);
        if (ContrastRatio(candidate, ground) >= kReadable) return candidate;
    }
    return end;
}

QColor DarkBackground(int darkTone) {
    const auto* found = std::ranges::find(kTones, darkTone, &Tone::number);
    return ColorFromStored(found == std::end(kTones) ? kOtherTone : found->background);
}

Theme Theme::Light() {
    return {.dark = false,
            .window = QColor(0xF2, 0xF3, 0xF5),
            .base = Qt::white,
            .alternateBase = QColor(0xF8, 0xF9, 0xFA),
            .button = QColor(0xF2, 0xF3, 0xF5),
            .text = QColor(0x1A, 0x1C, 0x1E),
            .secondaryText = QColor(0x5C, 0x61, 0x67),
            .accent = QColor(0x2A, 0x67, 0xC9),
            .accentText = Qt::white,
            .line = QColor(0xDC, 0xDF, 0xE3),
            .link = QColor(0x0B, 0x57, 0xA8)};
}

Theme Theme::Dark(int darkTone) {
    const QColor background = DarkBackground(darkTone);
    const QColor alternate = mixed(Qt::white, background, 0.04);
    const QColor button = ColorFromStored(kDarkButtonFace);
    const QColor accent = ReadableOn(QColor(0x6E, 0xA8, 0xF5), alternate);
    return {.dark = true,
            .window = mixed(Qt::white, background, 0.07),
            .base = background,
            .alternateBase = alternate,
            .button = button,
            .text = Qt::white,
            .secondaryText = ReadableOn(QColor(0xC8, 0xCC, 0xD2), button),
            .accent = accent,
            .accentText = Qt::black,
            .line = mixed(Qt::white, background, 0.2),
            .link = accent};
}

Theme Theme::Of(const Settings::Dark& settings) {
    return settings.enableDarkMode ? Dark(settings.darkTone) : Light();
}

QPalette Theme::palette() const {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, alternateBase);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, secondaryText);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, button);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, accentText);
    palette.setColor(QPalette::Link, link);
    palette.setColor(QPalette::LinkVisited, link);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, accentText);
    palette.setColor(QPalette::Light, mixed(Qt::white, button, dark ? 0.15 : 0.9));
    palette.setColor(QPalette::Midlight, mixed(Qt::white, button, dark ? 0.08 : 0.5));
    palette.setColor(QPalette::Mid, line);
    palette.setColor(QPalette::Dark, mixed(Qt::black, line, 0.25));
    palette.setColor(QPalette::Shadow, mixed(Qt::black, line, 0.6));
    const QColor faint = mixed(text, window, 0.45);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, line);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, text);
    return palette;
}

void ApplyTheme(QApplication& application, const Theme& theme) {
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(theme.palette());
    QIcon::setThemeName(theme.dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
}

}  // namespace app
