#include "app/SettingsStore.h"
#include "app/SettingsTable.h"
#include "support/TemporaryFolder.h"

#include <set>
#include <sstream>

// The keys of users' settings files. A slip in one loses a setting without a word: what is read under a new
// name has its default, what is written under one is never read.

namespace {

struct Section {
    const char* name;
    const char* keys;  ///< between blanks
};

constexpr Section kReadAndWritten[] = {
    {"Main",
     "SizeDisplayFormat ShowFolders ShowFoldersSizes ShowFullTitlePath ShowStatusBar ShowQuickView "
     "ExportAllTo "
     "ExportAllWhat Language ShowSmartDetails SortMode SortAscending ViewMode HeightAddModify "
     "WidthAddModify"},
    {"ListView",
     "ShowCheckBox DisplayMixedFilesAndFolders FullRow HideSystemFiles InsertSorted TileSize ShowGridlines "
     "ShowInGroups ShowInfoTips UseNaturalSortOrder"},
    {"ListViewMetadata", "RightAligned LibelleHelp"},
    {"ExifTool",
     "DataLanguage DisplayUnknownTags PreserveDateTime IgnoreMinorErrors IgnoreComposite IgnoreXML "
     "IgnoreFILE "
     "OverwriteExistingFilesConfirmation UseMWG CorrectedCommands WarmStart"},
    {"MetadataList",
     "ShowFileDefault ShowExif ShowComposite ShowGps ShowIptc ShowIcc ShowMakerNotes ShowXmp ShowUnknown"},
    {"Misc", "ShowReportOnError"},
    {"Lists", "ShowMetadataWindow ShowGpsWindow ShowHexaDumpWindow ShowHelpWindow"},
    {"Metadata_Panel", "COL_DATA"},
    {"Tiles",
     "ShowRating showAperture showDateTimeOriginal showFlash showFocalLength showISO showImageSize showModel "
     "showShutterSpeed showWhiteBalance"},
    {"GPS", "GpsViewType GpsViewTraffic GpsZoomLevel"},
    {"TreeView",
     "CheckPinnedToNamespaceTreeProperty TreeViewDelayEnabled OneClickActivate TreeViewAutoExpandSelected "
     "ShowSystemFolders ShowHiddenFolders SynchronizeTreeview"},
    {"BATCH", "ExifUserComment DefaultSavePath DeleteAllSafetyCopy DeleteAllKeepDate"},
    {"PATHS", "ExifToolPath FFMpegPath ImageMagickPath"},
    {"Dark", "EnableDarkMode DarkTone DarkToneButtonLeft DarkToneHighlight"},
    {"Colors",
     "colorHeaderListMain colorHeader_ListMetadata colorLibelle colorDefault colorSystem colorUnknownTag "
     "colorTagHexa colorTagId colorCanBeModifiedTag iHighLight boldHeader_ListMain boldHeader_ListMetadata "
     "colorGroupHeaderVerticalGradient colorGroupHeaderText colorGroupHeaderHigh colorGroupHeaderLow "
     "colorGroupHeaderSolid"},
    {"WINDOWS_SIZES", "Holder_Left_Width Middle_List_Width Holder_Right_Width Main_Width"},
    {"MainWindow-Position", "Left Top Right Bottom"},
    {"Nodes", "1"},
};

constexpr Section kOnlyRead[] = {{"Colors", "colorGroupHeaderIUseSolid"}};

constexpr Section kOnlyWritten[] = {
    {"Main", "showReportOnError CheckForNewVersionAtStart ForceSize HideLinkExtensionGlobal"},
    {"ListView", "ShowExtensions ShowFolderSizes"},
    {"Colors", "colorGroupHeaderUseSolid"},
    {"WINDOWS_SIZES", "Main_Height"},
};

using Keys = std::set<std::string>;

void add(Keys& keys, std::span<const Section> sections) {
    for (const Section& section : sections) {
        std::istringstream words(section.keys);
        for (std::string key; words >> key;) keys.insert(std::string(section.name) + "/" + key);
    }
}

Keys without(const Keys& keys, const Keys& others) {
    Keys left;
    std::ranges::set_difference(keys, others, std::inserter(left, left.end()));
    return left;
}

/// The keys that the lines of a settings file have.
Keys keysIn(const std::string& file) {
    Keys keys;
    std::string section;
    std::istringstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('['))
            section = line.substr(1, line.find(']') - 1);
        else if (line.find('=') != std::string::npos)
            keys.insert(section + "/" + line.substr(0, line.find('=')));
    }
    return keys;
}

TEST(SettingsKeys, AreReadUnderTheirNames) {
    Keys expected;
    add(expected, kReadAndWritten);
    add(expected, kOnlyRead);
    Keys read;
    for (const app::SettingRow& row : app::settingsTable())
        if (row.readAt != app::ReadAt::Never) read.insert(std::string(row.section) + "/" + row.readKey);
    EXPECT_EQ(without(read, expected), Keys()) << "read and not known";
    EXPECT_EQ(without(expected, read), Keys()) << "known and not read";
}

TEST(SettingsKeys, AreWrittenUnderTheirNames) {
    Keys expected;
    add(expected, kReadAndWritten);
    add(expected, kOnlyWritten);
    const support::TemporaryFolder folder;
    app::AppContext context;
    context.installPath = folder.path();
    context.iniPath = folder / "Tagwright.ini";
    // A tool that was only found is not written.
    context.exifToolPath = "/chosen/exiftool";
    context.ffmpegPath = "/chosen/ffmpeg";
    context.imageMagickPath = "/chosen/convert";
    EXPECT_EQ(app::SaveWindowPosition(context, {}), QString());
    EXPECT_EQ(app::SaveWindowSizes(context, {}), QString());
    EXPECT_EQ(app::SaveSettings(context), QString());
    const Keys written = keysIn(support::readBytes(context.iniPath));
    EXPECT_EQ(without(written, expected), Keys()) << "written and not known";
    EXPECT_EQ(without(expected, written), Keys()) << "known and not written";
}

}  // namespace
