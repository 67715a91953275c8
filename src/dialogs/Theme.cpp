#include "dialogs/Theme.h"

#include "controls/ColorArithmetic.h"
#include "controls/IndicatorStyle.h"

#include <QApplication>
#include <QIcon>
#include <algorithm>

namespace dialogs {

using controls::colorFromStored;
using controls::mixedColor;
using controls::readableOn;

namespace {

constexpr std::uint32_t kDarkButtonFace = 6052956;

struct Tone {
    int number;
    std::uint32_t background;
};

constexpr Tone kTones[] = {{1, 3343929}, {2, 16183},    {3, 0x0F3F00}, {4, 3869700},
                           {5, 11840},   {6, 0x400037}, {8, 0x202020}, {9, 4079166}};
constexpr std::uint32_t kOtherTone = 2894867;

}  // namespace

QColor darkBackground(int darkTone) {
    const auto* found = std::ranges::find(kTones, darkTone, &Tone::number);
    return colorFromStored(found == std::end(kTones) ? kOtherTone : found->background);
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
    const QColor background = darkBackground(darkTone);
    const QColor alternate = mixedColor(background, Qt::white, 0.04F);
    const QColor button = colorFromStored(kDarkButtonFace);
    const QColor accent = readableOn(QColor(0x6E, 0xA8, 0xF5), alternate);
    return {.dark = true,
            .window = mixedColor(background, Qt::white, 0.07F),
            .base = background,
            .alternateBase = alternate,
            .button = button,
            .text = Qt::white,
            .secondaryText = readableOn(QColor(0xC8, 0xCC, 0xD2), button),
            .accent = accent,
            .accentText = Qt::black,
            .line = mixedColor(background, Qt::white, 0.2F),
            .link = accent};
}

Theme Theme::of(const app::Settings::Dark& settings) {
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
    palette.setColor(QPalette::Light, mixedColor(button, Qt::white, dark ? 0.15F : 0.9F));
    palette.setColor(QPalette::Midlight, mixedColor(button, Qt::white, dark ? 0.08F : 0.5F));
    palette.setColor(QPalette::Mid, line);
    palette.setColor(QPalette::Dark, mixedColor(line, Qt::black, 0.25F));
    palette.setColor(QPalette::Shadow, mixedColor(line, Qt::black, 0.6F));
    const QColor faint = mixedColor(window, text, 0.45F);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, line);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, text);
    return palette;
}

void applyTheme(QApplication& application, const Theme& theme) {
    application.setStyle(new controls::IndicatorStyle);
    QApplication::setPalette(theme.palette());
    QIcon::setThemeName(theme.dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
}

}  // namespace dialogs
