#include "app/SettingsStore.h"
#include "app/SettingsTable.h"
#include "platform/IniFile.h"

#include <cmath>
#include <fstream>
#include <iterator>

namespace {

using app::AppContext;

AppContext firstRun() {
    AppContext context;
    context.iniPath = std::filesystem::path(TAGWRIGHT_SOURCE_DIR) / "data" / "first-run.ini";
    app::LoadEarlySettings(context);
    app::loadWindowPosition(context);
    app::LoadSettings(context);
    return context;
}

double luminance(std::uint32_t stored) {
    const auto channel = [&](int shift) {
        const double value = static_cast<double>(stored >> shift & 0xFF) / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(0) + 0.7152 * channel(8) + 0.0722 * channel(16);
}

double contrast(std::uint32_t one, std::uint32_t other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST(FirstRunSettings, EveryColourOfThePanelReadsOnEveryGround) {
    const app::Settings::Colors colors = firstRun().settings.colors;
    constexpr std::uint32_t kGrounds[] = {0xFFFFFF, 0xFAF9F8,
                                          0xF7EAE1};  // rows, every other row, a selected row
    for (const std::uint32_t text :
         {colors.libelle, colors.tagId, colors.defaultText, colors.system, colors.unknownTag, colors.tagHexa,
          colors.canBeModifiedTag, colors.headerListMetadata}) {
        for (const std::uint32_t ground : kGrounds)
            EXPECT_GE(contrast(text, ground), 4.5) << std::hex << text << " on " << ground;
    }
    for (const std::uint32_t ground :
         {colors.groupHeaderHigh, colors.groupHeaderLow, colors.groupHeaderSolid}) {
        EXPECT_GE(contrast(colors.groupHeaderText, ground), 4.5);
        EXPECT_GE(contrast(0x67615C, ground), 4.5) << "the count of a header";
    }
}

TEST(FirstRunSettings, TheBuiltInColoursWouldNotDo) {
    EXPECT_LT(contrast(app::Settings().colors.canBeModifiedTag, 0xFFFFFF), 4.5);
}

TEST(FirstRunSettings, TheFirstMinuteShowsEverything) {
    const app::Settings settings = firstRun().settings;
    EXPECT_EQ(settings.main.viewMode, 1);
    EXPECT_TRUE(settings.exifTool.correctedCommands);
    EXPECT_TRUE(settings.lists.showMetadataWindow);
    const auto& shown = settings.metadataList;
    EXPECT_TRUE(shown.showFileDefault && shown.showExif && shown.showComposite && shown.showGps &&
                shown.showIptc && shown.showIcc && shown.showMakerNotes && shown.showXmp &&
                shown.showUnknown);
}

TEST(FirstRunSettings, ThePaneSizesAreNotReset) {
    const app::Settings::WindowSizes sizes = firstRun().settings.windowSizes;
    EXPECT_EQ(sizes.holderLeftWidth, 200);
    EXPECT_EQ(sizes.holderRightWidth, 500);
    EXPECT_LE(sizes.holderLeftWidth + sizes.middleListWidth + sizes.holderRightWidth, 1280);
}

TEST(FirstRunSettings, EveryKeyIsOneThatTheProgramReads) {
    const QString text = QString::fromStdString([] {
        std::ifstream file(std::filesystem::path(TAGWRIGHT_SOURCE_DIR) / "data" / "first-run.ini");
        return std::string(std::istreambuf_iterator<char>(file), {});
    }());
    QString section;
    for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'[')) {
            section = line.mid(1, line.size() - 2);
            continue;
        }
        const QString key = line.section(u'=', 0, 0);
        const bool known = std::ranges::any_of(app::settingsTable(), [&](const app::SettingRow& row) {
            return section == QLatin1StringView(row.section) &&
                   (key == QLatin1StringView(row.readKey) || key == QLatin1StringView(row.writtenKey));
        });
        EXPECT_TRUE(known) << section.toStdString() << ' ' << key.toStdString();
    }
}

}  // namespace
