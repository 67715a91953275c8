// What stands on what in the window, and whether it can be told from it, in light and in every dark tone.
#include "app/SettingsStore.h"
#include "browser/FileIcons.h"
#include "controls/ColorArithmetic.h"
#include "controls/Icons.h"
#include "controls/ListColors.h"
#include "controls/RibbonColors.h"
#include "dialogs/Theme.h"
#include "panel/MetadataDelegate.h"
#include "panel/MetadataListView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

using controls::contrastRatio;
using controls::kMarkContrast;
using controls::kTextContrast;
using controls::ListColors;
using dialogs::Theme;

/// 0 is the light look, the others are the dark tones and one.
class Contrast : public testing::TestWithParam<int> {
 protected:
    Contrast() { controls::setDarkIcons(theme.dark); }
    ~Contrast() override { controls::setDarkIcons(false); }

    /// Four grounds of rows, eight with the mouse over them.
    std::vector<QColor> grounds() const {
        std::vector<QColor> all;
        for (const bool alternate : {false, true})
            for (const bool selected : {false, true})
                for (const bool hovered : {false, true})
                    all.push_back(list.groundOf({alternate, selected, hovered}));
        return all;
    }

    const Theme theme = GetParam() == 0 ? Theme::Light() : Theme::Dark(GetParam() - 1);
    const QPalette palette = theme.palette();
    const ListColors list{palette};
};

INSTANTIATE_TEST_SUITE_P(Looks, Contrast, testing::Range(0, 11), [](const testing::TestParamInfo<int>& info) {
    return info.param == 0 ? std::string("Light") : "Tone" + std::to_string(info.param - 1);
});

TEST_P(Contrast, TheTextsOfThePanelReadOnEveryRow) {
    app::Settings::Colors shipped;
    // As a new user has them, beside those that a missing key gives.
    shipped.libelle = 4862500;
    shipped.tagId = 7169375;
    shipped.canBeModifiedTag = 11032331;
    shipped.system = 543626;
    shipped.unknownTag = 27246;
    shipped.tagHexa = 10502011;
    for (const app::Settings::Colors& colours : {shipped, app::Settings::Colors()})
        for (const std::uint32_t stored : {colours.libelle, colours.tagId, colours.canBeModifiedTag,
                                           colours.system, colours.unknownTag, colours.tagHexa})
            for (const QColor& ground : grounds()) {
                const QColor painted = panel::MetadataDelegate::colourOn(
                    {tags::PanelColour::Source::Setting, stored}, palette, ground);
                EXPECT_GE(contrastRatio(painted, ground), kTextContrast)
                    << std::hex << stored << " on " << ground.name().toStdString();
            }
}

TEST_P(Contrast, TheTextsOfHeadersReadOnBothEndsOfTheirGround) {
    app::Settings::Colors shipped;
    shipped.groupHeaderText = 5649695;
    shipped.groupHeaderHigh = 16050916;
    shipped.groupHeaderLow = 15654355;
    // On the two reds that missing keys give, no text could be read from end to end.
    const auto header = panel::MetadataListView::headerColours(shipped, theme.base);
    for (const QColor& ground : {header.high, header.low}) {
        EXPECT_GE(contrastRatio(header.text, ground), kTextContrast) << ground.name().toStdString();
        EXPECT_GE(contrastRatio(header.count, ground), kTextContrast) << ground.name().toStdString();
    }
    for (const QColor& ground : {theme.base, theme.alternateBase}) {
        EXPECT_GE(contrastRatio(list.groupTitle, ground), kTextContrast);
        EXPECT_GE(contrastRatio(list.secondaryText, ground), kTextContrast);
    }
}

TEST_P(Contrast, WhatIsSelectedAndWhereTheKeyboardIsCanBeSeen) {
    for (const QColor& ground : grounds()) {
        EXPECT_GE(contrastRatio(theme.text, ground), kTextContrast) << ground.name().toStdString();
        EXPECT_GE(contrastRatio(list.focusFrame, ground), kMarkContrast) << ground.name().toStdString();
        EXPECT_GE(contrastRatio(list.selectionMark, ground), kMarkContrast) << ground.name().toStdString();
    }
    EXPECT_GE(contrastRatio(list.checkBoxFrame, theme.base), kMarkContrast);
}

TEST_P(Contrast, TheRibbonReads) {
    const controls::RibbonColors ribbon(palette);
    EXPECT_GE(contrastRatio(ribbon.currentTab, ribbon.body), kTextContrast);
    EXPECT_GE(contrastRatio(ribbon.text, ribbon.strip), kTextContrast);
    EXPECT_GE(contrastRatio(ribbon.text, ribbon.checked), kTextContrast);
    EXPECT_GE(contrastRatio(ribbon.text, ribbon.pressed), kTextContrast);
    EXPECT_GE(contrastRatio(ribbon.secondaryText, ribbon.body), kTextContrast);
    EXPECT_GE(contrastRatio(ribbon.accent, ribbon.body), kMarkContrast) << "the line over the tab";
    EXPECT_GE(contrastRatio(ribbon.accent, ribbon.strip), kMarkContrast) << "the frame of the keyboard";
}

/// The contrast that a quarter of the picture's pixels have at least.
double strengthOf(const QPixmap& picture, const QColor& ground) {
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    std::vector<double> contrasts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 128)
                contrasts.push_back(contrastRatio(QColor(image.pixel(x, y)), ground));
    if (contrasts.empty()) return 0;
    std::ranges::sort(contrasts, std::greater<>());
    return contrasts[contrasts.size() / 4];
}

TEST_P(Contrast, TheIconsOfFilesCanBeToldFromTheList) {
    browser::FileIcons icons;
    const std::pair<const char*, browser::ItemKind> files[] = {
        {"a.jpg", browser::ItemKind::File},  {"a.png", browser::ItemKind::File},
        {"a.cr2", browser::ItemKind::File},  {"a.mp3", browser::ItemKind::File},
        {"a.mp4", browser::ItemKind::File},  {"a.pdf", browser::ItemKind::File},
        {"a.txt", browser::ItemKind::File},  {"a.docx", browser::ItemKind::File},
        {"a.zip", browser::ItemKind::File},  {"a.xmp", browser::ItemKind::File},
        {"a.what", browser::ItemKind::File}, {"folder", browser::ItemKind::Folder}};
    for (const auto& [name, kind] : files)
        EXPECT_GE(strengthOf(icons.of(name, kind, false).pixmap(16, 16), theme.base), kMarkContrast) << name;
}

}  // namespace
