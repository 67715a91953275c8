#include "dialogs/Theme.h"

#include "controls/ColorArithmetic.h"
#include "controls/IndicatorStyle.h"

namespace {

using controls::contrastRatio;
using dialogs::Theme;

TEST(Theme, StoredColoursHaveBlueAbove) {
    EXPECT_EQ(controls::colorFromStored(0x4080FF), QColor(0xFF, 0x80, 0x40));
    EXPECT_EQ(controls::storedFromColor(QColor(0x0B, 0x57, 0xA8)), 0xA8570Bu);
    EXPECT_EQ(controls::colorFromStored(0xFF000000u | 0x010203u), QColor(3, 2, 1));
}

TEST(Theme, ContrastRunsFromOneToTwentyOne) {
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::black), 21.0, 0.001);
    EXPECT_NEAR(contrastRatio(Qt::red, Qt::red), 1.0, 0.001);
    EXPECT_NEAR(contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(Theme, DarkTonesHaveTheirBackgrounds) {
    const std::pair<int, std::uint32_t> tones[] = {{0, 2894867},  {1, 3343929}, {2, 16183},    {3, 0x0F3F00},
                                                   {4, 3869700},  {5, 11840},   {6, 0x400037}, {7, 2894867},
                                                   {8, 0x202020}, {9, 4079166}, {99, 2894867}, {-1, 2894867}};
    for (const auto& [tone, stored] : tones)
        EXPECT_EQ(controls::storedFromColor(dialogs::darkBackground(tone)), stored) << tone;
}

std::vector<Theme> allThemes() {
    std::vector<Theme> themes = {Theme::Light()};
    for (int tone = 0; tone < 10; ++tone) themes.push_back(Theme::Dark(tone));
    return themes;
}

TEST(Theme, EveryTextReadsOnEveryGround) {
    for (const Theme& theme : allThemes()) {
        for (const QColor& ground : {theme.window, theme.base, theme.alternateBase, theme.button}) {
            EXPECT_GE(contrastRatio(theme.text, ground), 4.5) << ground.name().toStdString();
            EXPECT_GE(contrastRatio(theme.secondaryText, ground), 4.5) << ground.name().toStdString();
        }
        EXPECT_GE(contrastRatio(theme.link, theme.base), 4.5);
        EXPECT_GE(contrastRatio(theme.accentText, theme.accent), 4.5);
    }
}

TEST(Theme, ThePanelsColoursCanBeMadeToReadOnDarkTones) {
    for (int tone = 0; tone < 10; ++tone) {
        const QColor ground = dialogs::darkBackground(tone);
        for (const QRgb color : {0x24324Au, 0x0B57A8u, 0x7B3FA0u, 0x8A4B08u, 0x6E6A00u, 0x000000u})
            EXPECT_GE(contrastRatio(controls::readableOn(QColor(color), ground), ground), 4.5);
    }
    EXPECT_EQ(controls::readableOn(QColor(0x0B, 0x57, 0xA8), Qt::white), QColor(0x0B, 0x57, 0xA8));
    EXPECT_GE(contrastRatio(controls::readableOn(Qt::yellow, Qt::white), Qt::white), 4.5);
}

TEST(Theme, ThePaletteCarriesTheRoles) {
    const QPalette palette = Theme::Light().palette();
    EXPECT_EQ(palette.color(QPalette::Window), QColor(0xF2, 0xF3, 0xF5));
    EXPECT_EQ(palette.color(QPalette::Highlight), QColor(0x2A, 0x67, 0xC9));
    EXPECT_EQ(palette.color(QPalette::AlternateBase), QColor(0xF8, 0xF9, 0xFA));
    app::Settings::Dark dark;
    EXPECT_FALSE(Theme::of(dark).dark);
    dark.enableDarkMode = true;
    dark.darkTone = 8;
    EXPECT_EQ(Theme::of(dark).base, QColor(0x20, 0x20, 0x20));
}

/// The best contrast that a part of the button's indicator has to the window.
double bestContrast(QAbstractButton& button, const Theme& theme) {
    button.setPalette(theme.palette());
    button.setAutoFillBackground(true);
    button.resize(button.sizeHint());
    const QImage image = button.grab().toImage();
    double best = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            best = std::max(best, static_cast<double>(contrastRatio(image.pixelColor(x, y), theme.window)));
    }
    return best;
}

TEST(Theme, AnEmptyCheckBoxOrRadioButtonCanBeSeenOnEveryWindow) {
    controls::IndicatorStyle style;
    for (const Theme& theme : allThemes()) {
        QCheckBox box;
        QRadioButton radio;
        for (QAbstractButton* button :
             {static_cast<QAbstractButton*>(&box), static_cast<QAbstractButton*>(&radio)}) {
            button->setStyle(&style);
            EXPECT_GE(bestContrast(*button, theme), 2.2) << theme.window.name().toStdString();
        }
    }
}

}  // namespace
