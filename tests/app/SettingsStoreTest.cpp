#include "app/SettingsStore.h"

#include "app/NumberedNames.h"
#include "app/SettingsTable.h"
#include "platform/IniFile.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <set>
#include <tuple>

namespace {

using app::AppContext;
using app::ReadAt;
using app::SettingRow;
using app::Settings;
using platform::IniFile;

// What every key holds when the file does not name it, told anew here: a slip in the table or in an
// initialiser shows, and so do two members that have changed places there.
struct Default {
    const char* section;
    const char* key;
    int value;
    std::int64_t (*member)(const AppContext&);
};

template <auto... Members>
std::int64_t member(const AppContext& context) {
    return static_cast<std::int64_t>((context.settings.*....*Members));
}

constexpr Default kDefaults[] = {
    // clang-format off
    {"Main", "SizeDisplayFormat", 2, member<&Settings::main, &Settings::Main::sizeDisplayFormat>},
    {"Main", "ShowFolders", 1, member<&Settings::main, &Settings::Main::showFolders>},
    {"Main", "ShowFoldersSizes", 0, member<&Settings::main, &Settings::Main::showFoldersSizes>},
    {"Main", "ShowFullTitlePath", 1, member<&Settings::main, &Settings::Main::showFullTitlePath>},
    {"Main", "ShowStatusBar", 1, member<&Settings::main, &Settings::Main::showStatusBar>},
    {"Main", "ShowQuickView", 1, member<&Settings::main, &Settings::Main::showQuickView>},
    {"Main", "ExportAllTo", 0, member<&Settings::main, &Settings::Main::exportAllTo>},
    {"Main", "ExportAllWhat", 0, member<&Settings::main, &Settings::Main::exportAllWhat>},
    {"Main", "Language", 9, member<&Settings::main, &Settings::Main::language>},
    {"Main", "ShowSmartDetails", 0, member<&Settings::main, &Settings::Main::showSmartDetails>},
    {"Main", "SortMode", 1, member<&Settings::main, &Settings::Main::sortMode>},
    {"Main", "SortAscending", 1, member<&Settings::main, &Settings::Main::sortAscending>},
    {"Main", "ViewMode", 0, member<&Settings::main, &Settings::Main::viewMode>},
    {"Main", "HeightAddModify", 500, member<&Settings::main, &Settings::Main::heightAddModify>},
    {"Main", "WidthAddModify", 500, member<&Settings::main, &Settings::Main::widthAddModify>},
    {"ListView", "ShowCheckBox", 1, member<&Settings::listView, &Settings::ListView::showCheckBox>},
    {"ListView", "DisplayMixedFilesAndFolders", 1, member<&Settings::listView, &Settings::ListView::displayMixedFilesAndFolders>},
    {"ListView", "FullRow", 1, member<&Settings::listView, &Settings::ListView::fullRow>},
    {"ListView", "HideSystemFiles", 1, member<&Settings::listView, &Settings::ListView::hideSystemFiles>},
    {"ListView", "InsertSorted", 1, member<&Settings::listView, &Settings::ListView::insertSorted>},
    {"ListView", "TileSize", 150, member<&Settings::listView, &Settings::ListView::tileSize>},
    {"ListView", "ShowGridlines", 1, member<&Settings::listView, &Settings::ListView::showGridlines>},
    {"ListView", "ShowInGroups", 0, member<&Settings::listView, &Settings::ListView::showInGroups>},
    {"ListView", "ShowInfoTips", 10, member<&Settings::listView, &Settings::ListView::showInfoTips>},
    {"ListView", "UseNaturalSortOrder", 10, member<&Settings::listView, &Settings::ListView::useNaturalSortOrder>},
    {"ListViewMetadata", "RightAligned", 1, member<&Settings::listViewMetadata, &Settings::ListViewMetadata::rightAligned>},
    {"ListViewMetadata", "LibelleHelp", 1, member<&Settings::listViewMetadata, &Settings::ListViewMetadata::libelleHelp>},
    {"ExifTool", "DataLanguage", 2, member<&Settings::exifTool, &Settings::ExifTool::dataLanguage>},
    {"ExifTool", "DisplayUnknownTags", 1, member<&Settings::exifTool, &Settings::ExifTool::displayUnknownTags>},
    {"ExifTool", "PreserveDateTime", 1, member<&Settings::exifTool, &Settings::ExifTool::preserveDateTime>},
    {"ExifTool", "IgnoreMinorErrors", 1, member<&Settings::exifTool, &Settings::ExifTool::ignoreMinorErrors>},
    {"ExifTool", "IgnoreComposite", 1, member<&Settings::exifTool, &Settings::ExifTool::ignoreComposite>},
    {"ExifTool", "IgnoreXML", 1, member<&Settings::exifTool, &Settings::ExifTool::ignoreXml>},
    {"ExifTool", "IgnoreFILE", 1, member<&Settings::exifTool, &Settings::ExifTool::ignoreFile>},
    {"ExifTool", "OverwriteExistingFilesConfirmation", 0, member<&Settings::exifTool, &Settings::ExifTool::overwriteExistingFilesConfirmation>},
    {"ExifTool", "UseMWG", 1, member<&Settings::exifTool, &Settings::ExifTool::useMwg>},
    {"ExifTool", "CorrectedCommands", 0, member<&Settings::exifTool, &Settings::ExifTool::correctedCommands>},
    {"ExifTool", "WarmStart", 1, member<&Settings::exifTool, &Settings::ExifTool::warmStart>},
    {"MetadataList", "ShowFileDefault", 1, member<&Settings::metadataList, &Settings::MetadataList::showFileDefault>},
    {"MetadataList", "ShowExif", 1, member<&Settings::metadataList, &Settings::MetadataList::showExif>},
    {"MetadataList", "ShowComposite", 0, member<&Settings::metadataList, &Settings::MetadataList::showComposite>},
    {"MetadataList", "ShowGps", 0, member<&Settings::metadataList, &Settings::MetadataList::showGps>},
    {"MetadataList", "ShowIptc", 0, member<&Settings::metadataList, &Settings::MetadataList::showIptc>},
    {"MetadataList", "ShowIcc", 0, member<&Settings::metadataList, &Settings::MetadataList::showIcc>},
    {"MetadataList", "ShowMakerNotes", 0, member<&Settings::metadataList, &Settings::MetadataList::showMakerNotes>},
    {"MetadataList", "ShowXmp", 0, member<&Settings::metadataList, &Settings::MetadataList::showXmp>},
    {"MetadataList", "ShowUnknown", 0, member<&Settings::metadataList, &Settings::MetadataList::showUnknown>},
    {"Misc", "ShowReportOnError", 0, member<&Settings::showReportOnError>},
    {"BATCH", "DeleteAllSafetyCopy", 1, member<&Settings::deleteAll, &Settings::DeleteAll::safetyCopy>},
    {"BATCH", "DeleteAllKeepDate", 1, member<&Settings::deleteAll, &Settings::DeleteAll::keepDate>},
    {"Lists", "ShowMetadataWindow", 0, member<&Settings::lists, &Settings::Lists::showMetadataWindow>},
    {"Lists", "ShowGpsWindow", 0, member<&Settings::lists, &Settings::Lists::showGpsWindow>},
    {"Lists", "ShowHexaDumpWindow", 0, member<&Settings::lists, &Settings::Lists::showHexaDumpWindow>},
    {"Lists", "ShowHelpWindow", 0, member<&Settings::lists, &Settings::Lists::showHelpWindow>},
    {"Metadata_Panel", "COL_DATA", 250, member<&Settings::metadataValueColumnWidth>},
    {"Tiles", "ShowRating", 0, member<&Settings::tiles, &Settings::Tiles::showRating>},
    {"Tiles", "showAperture", 0, member<&Settings::tiles, &Settings::Tiles::showAperture>},
    {"Tiles", "showDateTimeOriginal", 1, member<&Settings::tiles, &Settings::Tiles::showDateTimeOriginal>},
    {"Tiles", "showFlash", 1, member<&Settings::tiles, &Settings::Tiles::showFlash>},
    {"Tiles", "showFocalLength", 0, member<&Settings::tiles, &Settings::Tiles::showFocalLength>},
    {"Tiles", "showISO", 0, member<&Settings::tiles, &Settings::Tiles::showIso>},
    {"Tiles", "showImageSize", 1, member<&Settings::tiles, &Settings::Tiles::showImageSize>},
    {"Tiles", "showModel", 1, member<&Settings::tiles, &Settings::Tiles::showModel>},
    {"Tiles", "showShutterSpeed", 0, member<&Settings::tiles, &Settings::Tiles::showShutterSpeed>},
    {"Tiles", "showWhiteBalance", 0, member<&Settings::tiles, &Settings::Tiles::showWhiteBalance>},
    {"GPS", "GpsViewType", 1, member<&Settings::gps, &Settings::Gps::viewType>},
    {"GPS", "GpsViewTraffic", 0, member<&Settings::gps, &Settings::Gps::viewTraffic>},
    {"GPS", "GpsZoomLevel", 3, member<&Settings::gps, &Settings::Gps::zoomLevel>},
    {"TreeView", "CheckPinnedToNamespaceTreeProperty", 1, member<&Settings::treeView, &Settings::TreeView::checkPinnedToNamespaceTreeProperty>},
    {"TreeView", "TreeViewDelayEnabled", 1, member<&Settings::treeView, &Settings::TreeView::delayEnabled>},
    {"TreeView", "OneClickActivate", 1, member<&Settings::treeView, &Settings::TreeView::oneClickActivate>},
    {"TreeView", "TreeViewAutoExpandSelected", 1, member<&Settings::treeView, &Settings::TreeView::autoExpandSelected>},
    {"TreeView", "ShowSystemFolders", 0, member<&Settings::treeView, &Settings::TreeView::showSystemFolders>},
    {"TreeView", "ShowHiddenFolders", 0, member<&Settings::treeView, &Settings::TreeView::showHiddenFolders>},
    {"TreeView", "SynchronizeTreeview", 1, member<&Settings::treeView, &Settings::TreeView::synchronizeTreeview>},
    {"Dark", "EnableDarkMode", 0, member<&Settings::dark, &Settings::Dark::enableDarkMode>},
    {"Dark", "DarkTone", 0, member<&Settings::dark, &Settings::Dark::darkTone>},
    {"Dark", "DarkToneButtonLeft", 0, member<&Settings::dark, &Settings::Dark::darkToneButtonLeft>},
    {"Dark", "DarkToneHighlight", 0, member<&Settings::dark, &Settings::Dark::darkToneHighlight>},
    {"Colors", "colorHeaderListMain", 255, member<&Settings::colors, &Settings::Colors::headerListMain>},
    {"Colors", "colorHeader_ListMetadata", 155, member<&Settings::colors, &Settings::Colors::headerListMetadata>},
    {"Colors", "colorLibelle", 255, member<&Settings::colors, &Settings::Colors::libelle>},
    {"Colors", "colorDefault", 0, member<&Settings::colors, &Settings::Colors::defaultText>},
    {"Colors", "colorSystem", 0x4080FF, member<&Settings::colors, &Settings::Colors::system>},
    {"Colors", "colorUnknownTag", 6146048, member<&Settings::colors, &Settings::Colors::unknownTag>},
    {"Colors", "colorTagHexa", 0xFF0000, member<&Settings::colors, &Settings::Colors::tagHexa>},
    {"Colors", "colorTagId", 255, member<&Settings::colors, &Settings::Colors::tagId>},
    {"Colors", "colorCanBeModifiedTag", 65535, member<&Settings::colors, &Settings::Colors::canBeModifiedTag>},
    {"Colors", "iHighLight", 0, member<&Settings::colors, &Settings::Colors::highLight>},
    {"Colors", "boldHeader_ListMain", 1, member<&Settings::colors, &Settings::Colors::boldHeaderListMain>},
    {"Colors", "boldHeader_ListMetadata", 1, member<&Settings::colors, &Settings::Colors::boldHeaderListMetadata>},
    {"Colors", "colorGroupHeaderIUseSolid", 0, member<&Settings::colors, &Settings::Colors::groupHeaderUseSolid>},
    {"Colors", "colorGroupHeaderVerticalGradient", 1, member<&Settings::colors, &Settings::Colors::groupHeaderVerticalGradient>},
    {"Colors", "colorGroupHeaderText", 255, member<&Settings::colors, &Settings::Colors::groupHeaderText>},
    {"Colors", "colorGroupHeaderHigh", 255, member<&Settings::colors, &Settings::Colors::groupHeaderHigh>},
    {"Colors", "colorGroupHeaderLow", 155, member<&Settings::colors, &Settings::Colors::groupHeaderLow>},
    {"Colors", "colorGroupHeaderSolid", 155, member<&Settings::colors, &Settings::Colors::groupHeaderSolid>},
    {"WINDOWS_SIZES", "Holder_Left_Width", 300, member<&Settings::windowSizes, &Settings::WindowSizes::holderLeftWidth>},
    {"WINDOWS_SIZES", "Middle_List_Width", 300, member<&Settings::windowSizes, &Settings::WindowSizes::middleListWidth>},
    {"WINDOWS_SIZES", "Holder_Right_Width", 300, member<&Settings::windowSizes, &Settings::WindowSizes::holderRightWidth>},
    {"WINDOWS_SIZES", "Main_Width", 0, member<&Settings::windowSizes, &Settings::WindowSizes::mainWidth>},
    {"MainWindow-Position", "Left", 0, member<&Settings::windowPosition, &Settings::WindowPosition::left>},
    {"MainWindow-Position", "Top", 0, member<&Settings::windowPosition, &Settings::WindowPosition::top>},
    {"MainWindow-Position", "Right", 0, member<&Settings::windowPosition, &Settings::WindowPosition::right>},
    {"MainWindow-Position", "Bottom", 0, member<&Settings::windowPosition, &Settings::WindowPosition::bottom>},
    // clang-format on
};

const SettingRow* readRow(std::string_view section, std::string_view key) {
    for (const SettingRow& row : app::settingsTable()) {
        if (row.readAt != ReadAt::Never && row.section == section && row.readKey == key) return &row;
    }
    return nullptr;
}

// The number a member holds; the table has strings and paths besides.
std::optional<std::int64_t> number(const SettingRow& row, AppContext& context) {
    return std::visit(
        [&](auto field) -> std::optional<std::int64_t> {
            const auto& value = field(context);
            if constexpr (std::is_convertible_v<decltype(value), std::int64_t>)
                return static_cast<std::int64_t>(value);
            return std::nullopt;
        },
        row.field);
}

bool isBoolean(const SettingRow& row) {
    return std::holds_alternative<bool& (*)(AppContext&)>(row.field);
}

class SettingsStoreTest : public ::testing::Test {
 protected:
    SettingsStoreTest() {
        context_.installPath = folder_.path();
        context_.cachePath = folder_.path();
        context_.iniPath = folder_ / "Tagwright.ini";
    }

    void write(std::string_view text) { support::writeBytes(context_.iniPath, text); }
    std::string written() { return support::readBytes(context_.iniPath); }
    std::string value(std::string_view section, std::string_view key) {
        return IniFile(context_.iniPath).find(section, key).value_or("(none)");
    }

    void loadAll(AppContext& context) {
        app::loadLanguage(context);
        app::LoadEarlySettings(context);
        app::loadWindowPosition(context);
        app::LoadSettings(context);
        app::loadStartFolder(context);
    }

    support::TemporaryFolder folder_;
    AppContext context_;
};

TEST_F(SettingsStoreTest, EveryReadKeyHasItsDefaultAndNoKeyIsForgotten) {
    std::set<const SettingRow*> seen;
    AppContext fresh;
    for (const Default& expected : kDefaults) {
        SCOPED_TRACE(expected.key);
        const SettingRow* row = readRow(expected.section, expected.key);
        ASSERT_NE(row, nullptr);
        seen.insert(row);
        EXPECT_EQ(expected.member(fresh), expected.value);
    }
    for (const SettingRow& row : app::settingsTable()) {
        if (row.readAt == ReadAt::Never || !number(row, fresh)) continue;
        EXPECT_TRUE(seen.contains(&row)) << row.section << ' ' << row.readKey;
    }
}

TEST_F(SettingsStoreTest, MissingKeysBecomeTheirDefaultsWhateverWasInMemory) {
    write("[Main]\nViewMode=1\n[WINDOWS_SIZES]\nMain_Width=4000\n");
    AppContext fresh;
    for (const SettingRow& row : app::settingsTable()) {
        if (row.readAt == ReadAt::Never) continue;
        if (auto* field = std::get_if<int& (*)(AppContext&)>(&row.field)) (*field)(context_) = -77;
        if (auto* field = std::get_if<bool& (*)(AppContext&)>(&row.field))
            (*field)(context_) = !(*field)(fresh);
    }
    loadAll(context_);
    for (const Default& expected : kDefaults) {
        const std::string_view key = expected.key;
        if (key == "ViewMode" || key == "Main_Width") continue;
        EXPECT_EQ(expected.member(context_), expected.value) << key;
    }
}

TEST_F(SettingsStoreTest, EveryKeyIsReadFromItsPlace) {
    for (const Default& expected : kDefaults) {
        const std::string_view key = expected.key;
        const std::string_view section = expected.section;
        if (section == "Lists" || section == "WINDOWS_SIZES" || key == "ViewMode" || key == "SortMode")
            continue;
        SCOPED_TRACE(expected.key);
        const SettingRow& row = *readRow(section, key);
        const int other = isBoolean(row) ? 1 - expected.value : expected.value + 3;
        write("[Main]\nViewMode=2\n[" + std::string(section) + "]\n" + std::string(key) + "=" +
              std::to_string(other) + "\n");
        AppContext context = context_;
        loadAll(context);
        EXPECT_EQ(expected.member(context), other);
    }
}

TEST_F(SettingsStoreTest, AnyNumberButZeroIsTrue) {
    for (const auto& [text, expected] : std::vector<std::pair<std::string, bool>>{
             {"0", false}, {"1", true}, {"7", true}, {"-1", true}, {"yes", false}}) {
        write("[Main]\nViewMode=1\n[MetadataList]\nShowGps=" + text + "\n");
        app::LoadSettings(context_);
        EXPECT_EQ(context_.settings.metadataList.showGps, expected) << text;
    }
}

TEST_F(SettingsStoreTest, WhatIsSavedComesBack) {
    const auto change = [](const SettingRow& row, AppContext& context, int step) {
        if (auto* flag = std::get_if<bool& (*)(AppContext&)>(&row.field))
            (*flag)(context) = !(*flag)(context);
        if (auto* count = std::get_if<int& (*)(AppContext&)>(&row.field)) (*count)(context) += step;
        if (auto* color = std::get_if<std::uint32_t& (*)(AppContext&)>(&row.field))
            (*color)(context) = 0x010203u * 7;
        if (auto* text = std::get_if<QString& (*)(AppContext&)>(&row.field))
            (*text)(context) = QStringLiteral("W\u00F6rter %1").arg(step);
        if (auto* path = std::get_if<std::filesystem::path& (*)(AppContext&)>(&row.field))
            (*path)(context) = "/opt/t\xF6ol" + std::to_string(step);
    };
    int step = 10;
    for (const SettingRow& row : app::settingsTable()) {
        if (row.readAt == ReadAt::Never || std::string_view(row.section) == "Lists") continue;
        change(row, context_, ++step);
    }
    context_.settings.main.sortMode = 13;
    context_.settings.main.viewMode = 4;
    context_.settings.windowSizes = {.holderLeftWidth = 210,
                                     .middleListWidth = 640,
                                     .holderRightWidth = 420,
                                     .mainWidth = 1400,
                                     .mainHeight = 900};
    context_.settings.batch.exifUserComment = QStringLiteral("short");
    AppContext saving = context_;
    EXPECT_EQ(app::SaveWindowPosition(saving, context_.settings.windowPosition), QString());
    EXPECT_EQ(app::SaveWindowSizes(saving, context_.settings.windowSizes), QString());
    EXPECT_EQ(app::SaveSettings(saving), QString());

    AppContext loaded;
    loaded.iniPath = context_.iniPath;
    loadAll(loaded);
    for (const SettingRow& row : app::settingsTable()) {
        if (row.readAt == ReadAt::Never || std::string_view(row.readKey) != row.writtenKey) continue;
        std::visit(
            [&](auto field) {
                EXPECT_EQ(field(loaded), field(context_)) << row.section << ' ' << row.readKey;
            },
            row.field);
    }
}

TEST_F(SettingsStoreTest, TheSolidHeaderFlagNeverSurvivesARestart) {
    context_.settings.colors.groupHeaderUseSolid = true;
    EXPECT_EQ(app::SaveSettings(context_), QString());
    EXPECT_EQ(value("Colors", "colorGroupHeaderUseSolid"), "1");
    EXPECT_EQ(value("Colors", "colorGroupHeaderIUseSolid"), "(none)");
    app::LoadEarlySettings(context_);
    EXPECT_FALSE(context_.settings.colors.groupHeaderUseSolid);
}

TEST_F(SettingsStoreTest, TheReportFlagIsWrittenUnderTwoNamesAndReadUnderOne) {
    context_.settings.showReportOnError = true;
    EXPECT_EQ(app::SaveSettings(context_), QString());
    EXPECT_EQ(value("Misc", "ShowReportOnError"), "1");
    EXPECT_EQ(value("Main", "showReportOnError"), "1");
    write("[Main]\nViewMode=1\nshowReportOnError=1\n");
    app::LoadSettings(context_);
    EXPECT_FALSE(context_.settings.showReportOnError);
}

TEST_F(SettingsStoreTest, TwoSpellingsOfMainAreOneSection) {
    context_.settings.main.forceSize = true;
    EXPECT_EQ(app::SaveSettings(context_), QString());
    EXPECT_EQ(value("Main", "ForceSize"), "1");
    EXPECT_EQ(value("MAIN", "ViewMode"), "0");
    EXPECT_EQ(written().find("[MAIN]"), std::string::npos);
}

TEST_F(SettingsStoreTest, KeysThatAreOnlyWrittenAreNotRead) {
    write(
        "[Main]\nViewMode=1\nCheckForNewVersionAtStart=1\nForceSize=1\nHideLinkExtensionGlobal=1\n"
        "[ListView]\nShowExtensions=0\nShowFolderSizes=1\n[WINDOWS_SIZES]\nMain_Height=99\n");
    loadAll(context_);
    EXPECT_FALSE(context_.settings.main.checkForNewVersionAtStart);
    EXPECT_FALSE(context_.settings.main.forceSize);
    EXPECT_FALSE(context_.settings.main.hideLinkExtensionGlobal);
    EXPECT_TRUE(context_.settings.listView.showExtensions);
    EXPECT_FALSE(context_.settings.listView.showFolderSizes);
    EXPECT_EQ(context_.settings.windowSizes.mainHeight, 0);
}

TEST_F(SettingsStoreTest, SectionsAreSavedInTheirOrder) {
    const std::vector<std::string> expected = {"Nodes",
                                               "Main",
                                               "MetadataList",
                                               "Misc",
                                               "Lists",
                                               "ListView",
                                               "ListViewMetadata",
                                               "Metadata_Panel",
                                               "MAIN",
                                               "Main",
                                               "Tiles",
                                               "Dark",
                                               "PATHS",
                                               "ExifTool",
                                               "GPS",
                                               "TreeView",
                                               "Main",
                                               "Colors",
                                               "BATCH"};
    std::vector<std::string> sections;
    for (const SettingRow& row : app::settingsTable()) {
        const std::string section = row.section;
        if (section == "WINDOWS_SIZES" || section == "MainWindow-Position") continue;
        if (sections.empty() || sections.back() != section) sections.push_back(section);
    }
    EXPECT_EQ(sections, expected);
}

struct Panels {
    std::string_view set;
    std::array<bool, 4> shown;
};

TEST_F(SettingsStoreTest, OnlyTheFirstPanelStaysOn) {
    constexpr const char* kKeys[] = {"ShowMetadataWindow", "ShowGpsWindow", "ShowHexaDumpWindow",
                                     "ShowHelpWindow"};
    for (const Panels& panels :
         {Panels{"0000", {}}, Panels{"1000", {true}}, Panels{"1111", {true}}, Panels{"0111", {false, true}},
          Panels{"0011", {false, false, true}}, Panels{"0001", {false, false, false, true}}}) {
        std::string text = "[Main]\nViewMode=1\n[Lists]\n";
        for (std::size_t key = 0; key < 4; ++key)
            text += std::string(kKeys[key]) + "=" + panels.set[key] + "\n";
        write(text);
        app::LoadSettings(context_);
        const app::Settings::Lists& lists = context_.settings.lists;
        EXPECT_EQ((std::array{lists.showMetadataWindow, lists.showGpsWindow, lists.showHexaDumpWindow,
                              lists.showHelpWindow}),
                  panels.shown)
            << panels.set;
    }
}

struct PaneCase {
    const char* text;
    int left, middle, right;
};

TEST_F(SettingsStoreTest, PaneSizesAreCorrected) {
    for (const PaneCase& pane :
         {PaneCase{"Main_Width=2000\nHolder_Left_Width=0", 300, 300, 300},
          PaneCase{"Main_Width=2000\nMiddle_List_Width=0", 300, 600, 300},
          PaneCase{"Main_Width=2000\nHolder_Right_Width=-5", 300, 300, 500},
          PaneCase{"Main_Width=2000\nHolder_Left_Width=1\nMiddle_List_Width=1\nHolder_Right_Width=1", 1, 1,
                   1},
          PaneCase{"Main_Width=1001\nHolder_Left_Width=400\nHolder_Right_Width=500\nMiddle_List_Width=7", 400,
                   7, 500},
          PaneCase{"Main_Width=1000\nHolder_Left_Width=400\nHolder_Right_Width=500\nMiddle_List_Width=7", 300,
                   400, 300},
          PaneCase{"", 300, -600, 300},
          PaneCase{"Holder_Left_Width=2147483647\nHolder_Right_Width=2147483647\nMain_Width=-2147483648", 300,
                   INT32_MIN, 300}}) {
        write(std::string("[WINDOWS_SIZES]\n") + pane.text + "\n");
        app::LoadEarlySettings(context_);
        const app::Settings::WindowSizes& sizes = context_.settings.windowSizes;
        EXPECT_EQ(sizes.holderLeftWidth, pane.left) << pane.text;
        EXPECT_EQ(sizes.middleListWidth, pane.middle) << pane.text;
        EXPECT_EQ(sizes.holderRightWidth, pane.right) << pane.text;
    }
}

struct CommentCase {
    const char* comment;
    const char* savePath;
    const char* kept;
};

TEST_F(SettingsStoreTest, ASavePathOverwritesTheTailOfTheComment) {
    for (const CommentCase& row :
         {CommentCase{"A long comment", "", "A long comment"},
          CommentCase{"A long comment", "/save", "A long co"}, CommentCase{"Nine char", "/save", "Nine char"},
          CommentCase{"Short", "/save", "Short"}, CommentCase{"", "/save", ""}}) {
        write("[Main]\nViewMode=1\n[BATCH]\nExifUserComment=" + std::string(row.comment) +
              "\nDefaultSavePath=" + row.savePath + "\n");
        app::LoadSettings(context_);
        EXPECT_EQ(context_.settings.batch.exifUserComment.toStdString(), row.kept);
        EXPECT_EQ(context_.settings.batch.defaultSavePath.toStdString(), row.savePath);
    }
}

TEST_F(SettingsStoreTest, TextsAreCutToTheirRoom) {
    write("[Main]\nViewMode=1\n[BATCH]\nDefaultSavePath=" + std::string(400, 'x') +
          "\n[Nodes]\n1=" + std::string(400, 'y') + "\n");
    loadAll(context_);
    EXPECT_EQ(context_.settings.batch.defaultSavePath.size(), 259);
    EXPECT_EQ(context_.settings.startFolder.size(), 400) << "a part of a path leads nowhere";
}

TEST_F(SettingsStoreTest, AnyFolderCanBeTheOneShownLast) {
    write("[Main]\nViewMode=1\n");
    for (const std::string& name : support::hostileNames()) {
        for (const std::filesystem::path& folder :
             {std::filesystem::path("/a") / name, std::filesystem::path("/" + name) / "b",
              std::filesystem::path("/") / name / ""}) {
            loadAll(context_);
            context_.settings.startFolder = app::startFolderText(folder);
            ASSERT_EQ(app::SaveSettings(context_), QString());
            AppContext next;
            next.iniPath = context_.iniPath;
            app::loadStartFolder(next);
            EXPECT_EQ(app::startFolderOf(next.settings.startFolder), folder) << name;
        }
    }
    EXPECT_EQ(app::startFolderText("/a/b c"), "/a/b c");
}

struct FaultCase {
    const char* mainSection;
    const char* fault;
    int sortMode, viewMode;
};

TEST_F(SettingsStoreTest, ANumberOutsideAnEnumerationEndsTheLoad) {
    for (const FaultCase& row :
         {FaultCase{"SortMode=1\n", "ViewMode::_from_integral: invalid argument", 1, 1},
          FaultCase{"ViewMode=5\n", "ViewMode::_from_integral: invalid argument", 1, 1},
          FaultCase{"ViewMode=x\n", "ViewMode::_from_integral: invalid argument", 1, 1},
          FaultCase{"ViewMode=2\nSortMode=19\n", "SortMode::_from_integral: invalid argument", 1, 2},
          FaultCase{"ViewMode=9\nSortMode=0\n", "SortMode::_from_integral: invalid argument", 1, 1},
          FaultCase{"ViewMode=9\nSortMode=59\n", "ViewMode::_from_integral: invalid argument", 59, 1}}) {
        SCOPED_TRACE(row.mainSection);
        write(std::string("[Main]\nHeightAddModify=640\n") + row.mainSection + "[ListView]\nTileSize=99\n");
        AppContext ended = context_;
        try {
            app::LoadSettings(ended);
            ADD_FAILURE() << "no exception";
        } catch (const app::InvalidEnumeration& invalid) {
            EXPECT_STREQ(invalid.what(), row.fault);
        }
        EXPECT_EQ(ended.settings.main.heightAddModify, 500);
        EXPECT_EQ(ended.settings.listView.tileSize, 150);

        AppContext repaired = context_;
        const bool isMissing = std::string_view(row.mainSection) == "SortMode=1\n";
        EXPECT_EQ(app::loadSettingsOrDefaults(repaired),
                  isMissing ? QString() : QString::fromLatin1(row.fault));
        EXPECT_EQ(repaired.settings.main.sortMode, row.sortMode);
        EXPECT_EQ(repaired.settings.main.viewMode, row.viewMode);
        EXPECT_EQ(repaired.settings.main.heightAddModify, 640);
        EXPECT_EQ(repaired.settings.listView.tileSize, 99);
    }
}

TEST_F(SettingsStoreTest, GarbageGivesDefaults) {
    std::string noise = "[[[\n]=\n=5\n[Main\nSortMode\n;x\n\xFF\xFE\x01";
    for (int byte = 0; byte < 20000; ++byte) noise += static_cast<char>(byte * 7919 % 251);
    for (const std::string& garbage :
         {std::string(), noise, std::string(100000, '['), std::string(5000, '\0')}) {
        write(garbage);
        AppContext context = context_;
        app::loadLanguage(context);
        app::LoadEarlySettings(context);
        app::loadWindowPosition(context);
        app::loadStartFolder(context);
        EXPECT_EQ(app::loadSettingsOrDefaults(context), QString()) << "keys that are missing are no fault";
        EXPECT_EQ(context.settings.main.language, 9);
        EXPECT_EQ(context.settings.metadataValueColumnWidth, 250);
        EXPECT_EQ(context.settings.colors.system, 0x4080FFu);
    }
}

TEST_F(SettingsStoreTest, ForeignKeysAndSectionsStay) {
    write("; mine\n[Other]\nkey = value \n[Main]\nUnknown=5\nViewMode=1\n");
    EXPECT_EQ(app::SaveSettings(context_), QString());
    EXPECT_NE(written().find("; mine\n[Other]\nkey = value \n"), std::string::npos);
    EXPECT_EQ(value("Main", "Unknown"), "5");
    EXPECT_EQ(value("Main", "ViewMode"), "0");
}

TEST_F(SettingsStoreTest, ToolPathsReplaceOnlyWhenTheyAreNamed) {
    context_.exifToolPath = "/found/exiftool";
    context_.ffmpegPath = "/found/ffmpeg";
    write("[Main]\nViewMode=1\n[PATHS]\nExifToolPath=\nFFMpegPath=/named/ffm\xFFpeg\n");
    app::LoadSettings(context_);
    EXPECT_EQ(context_.exifToolPath, "/found/exiftool");
    EXPECT_EQ(context_.ffmpegPath, std::filesystem::path("/named/ffm\xFFpeg"));
    EXPECT_TRUE(context_.imageMagickPath.empty());
}

TEST_F(SettingsStoreTest, AToolThatWasMerelyFoundIsNotNamed) {
    context_.exifToolPath = folder_ / "exiftool";
    support::writeBytes(context_.exifToolPath, "#!/bin/sh\n");
    context_.ffmpegPath = "/chosen/ffmpeg";
    EXPECT_EQ(app::SaveSettings(context_), QString());
    EXPECT_EQ(value("PATHS", "ExifToolPath"), "(none)");
    EXPECT_EQ(value("PATHS", "FFMpegPath"), "/chosen/ffmpeg");
    write("[PATHS]\nExifToolPath=/elsewhere/exiftool\n");
    EXPECT_EQ(app::SaveSettings(context_), QString());
    EXPECT_EQ(value("PATHS", "ExifToolPath"), context_.exifToolPath.string());
}

TEST_F(SettingsStoreTest, OneNumberIsWrittenInDecimal) {
    EXPECT_EQ(app::WriteIntSetting("Anything", "key", context_.iniPath, -42), QString());
    EXPECT_EQ(value("anything", "KEY"), "-42");
}

TEST_F(SettingsStoreTest, AFileThatCannotBeWrittenIsTold) {
    context_.iniPath = folder_ / "missing" / "Tagwright.ini";
    EXPECT_NE(app::SaveSettings(context_), QString());
    EXPECT_NE(app::SaveWindowSizes(context_, {}), QString());
    EXPECT_NE(app::WriteIntSetting("A", "b", context_.iniPath, 1), QString());
}

// Two programs have loaded the first file. The second saves; then the first does.
struct MergeCase {
    const char* name;
    const char* file;    ///< what both have loaded
    const char* second;  ///< what the second has made of it
    void (*change)(AppContext& first);
    std::vector<std::array<const char*, 3>> expected;  ///< section, key, value
};

const MergeCase kMerges[] = {
    {"what only the other changed stays",
     "[Main]\nViewMode=1\nShowFolders=1\n",
     "[Main]\nViewMode=3\nShowFolders=0\n",
     [](AppContext&) {},
     {{"Main", "ViewMode", "3"}, {"Main", "ShowFolders", "0"}}},
    {"what only we changed is written",
     "[Main]\nViewMode=1\n",
     "[Main]\nViewMode=1\n",
     [](AppContext& first) { first.settings.main.viewMode = 2; },
     {{"Main", "ViewMode", "2"}}},
    {"of what both changed the last one stands",
     "[Main]\nViewMode=1\n[ListView]\nTileSize=100\n",
     "[Main]\nViewMode=3\n[ListView]\nTileSize=120\n",
     [](AppContext& first) { first.settings.main.viewMode = 2; },
     {{"Main", "ViewMode", "2"}, {"ListView", "TileSize", "120"}}},
    {"a key that was missing and that the other has made stays",
     "[Main]\nViewMode=1\n",
     "[Main]\nViewMode=1\n[ExifTool]\nUseMWG=0\n",
     [](AppContext&) {},
     {{"ExifTool", "UseMWG", "0"}, {"ExifTool", "IgnoreXML", "1"}}},
    {"a key that nobody changed is written as it was understood",
     "[Main]\nViewMode=1x\nShowFolders=7\n",
     "[Main]\nViewMode=1x\nShowFolders=7\n",
     [](AppContext&) {},
     {{"Main", "ViewMode", "1"}, {"Main", "ShowFolders", "1"}}},
    {"a correction of ours is no change of the user's",
     "[Main]\nViewMode=77\n",
     "[Main]\nViewMode=4\n",
     [](AppContext&) {},
     {{"Main", "ViewMode", "4"}}},
    {"a text, a path and a colour are kept like numbers",
     "[Main]\nViewMode=1\n[BATCH]\nDefaultSavePath=/a\n[PATHS]\nFFMpegPath=/a\n[Colors]\ncolorDefault=5\n",
     "[Main]\nViewMode=1\n[BATCH]\nDefaultSavePath=/b\n[PATHS]\nFFMpegPath=/b\n[Colors]\ncolorDefault=6\n",
     [](AppContext&) {},
     {{"BATCH", "DefaultSavePath", "/b"}, {"PATHS", "FFMpegPath", "/b"}, {"Colors", "colorDefault", "6"}}},
    {"a key that is only written stays too",
     "[Main]\nViewMode=1\n[ListView]\nShowExtensions=1\n",
     "[Main]\nViewMode=1\n[ListView]\nShowExtensions=0\n",
     [](AppContext&) {},
     {{"ListView", "ShowExtensions", "0"}}},
    {"the folder shown last is kept when we stayed where we were",
     "[Main]\nViewMode=1\n[Nodes]\n1=/a\n",
     "[Main]\nViewMode=1\n[Nodes]\n1=/b\n",
     [](AppContext&) {},
     {{"Nodes", "1", "/b"}}},
    {"one panel is not shown beside the other's",
     "[Main]\nViewMode=1\n[Lists]\nShowMetadataWindow=1\n",
     "[Main]\nViewMode=1\n[Lists]\nShowMetadataWindow=0\nShowHelpWindow=1\n",
     [](AppContext& first) {
         first.settings.lists = {};
         first.settings.lists.showGpsWindow = true;
     },
     {{"Lists", "ShowMetadataWindow", "0"},
      {"Lists", "ShowGpsWindow", "1"},
      {"Lists", "ShowHelpWindow", "0"}}},
    {"the other's panel stays when ours did not change",
     "[Main]\nViewMode=1\n[Lists]\nShowMetadataWindow=1\n",
     "[Main]\nViewMode=1\n[Lists]\nShowMetadataWindow=0\nShowHelpWindow=1\n",
     [](AppContext&) {},
     {{"Lists", "ShowMetadataWindow", "0"}, {"Lists", "ShowHelpWindow", "1"}}},
};

TEST_F(SettingsStoreTest, WhatAnotherProgramChangedIsNotUndone) {
    for (const MergeCase& row : kMerges) {
        SCOPED_TRACE(row.name);
        write(row.file);
        AppContext first;
        first.iniPath = context_.iniPath;
        app::LoadEarlySettings(first);
        app::loadWindowPosition(first);
        std::ignore = app::loadSettingsOrDefaults(first);  // some of the files are faulty on purpose
        app::loadStartFolder(first);
        write(row.second);
        row.change(first);
        EXPECT_EQ(app::SaveSettings(first), QString());
        for (const auto& [section, key, expected] : row.expected)
            EXPECT_EQ(value(section, key), expected) << key;
        EXPECT_EQ(app::SaveSettings(first), QString());
        for (const auto& [section, key, expected] : row.expected)
            EXPECT_EQ(value(section, key), expected) << key << ", saved twice";
    }
}

TEST_F(SettingsStoreTest, APlaceOfTheWindowIsOneValue) {
    const std::string file = "[MainWindow-Position]\nLeft=1\nTop=2\nRight=801\nBottom=602\n";
    const std::string other = "[MainWindow-Position]\nLeft=50\nTop=60\nRight=850\nBottom=660\n";
    write(file);
    app::loadWindowPosition(context_);
    write(other);
    EXPECT_EQ(app::SaveWindowPosition(context_, context_.settings.windowPosition), QString());
    EXPECT_EQ(written(), other) << "our window was not moved";
    EXPECT_EQ(app::SaveWindowPosition(context_, {.left = 1, .top = 2, .right = 900, .bottom = 602}),
              QString());
    EXPECT_EQ(written(), "[MainWindow-Position]\nLeft=1\nTop=2\nRight=900\nBottom=602\n");
}

TEST_F(SettingsStoreTest, WhatTheLayoutMadeOfTheSizesIsNoChange) {
    write("[WINDOWS_SIZES]\nMain_Width=0\n");
    app::LoadEarlySettings(context_);
    app::Settings::WindowSizes laidOut = context_.settings.windowSizes;
    laidOut.mainWidth = 1280;
    laidOut.mainHeight = 700;
    context_.settings.windowSizes = laidOut;
    app::takeAsLoaded(context_, "WINDOWS_SIZES");
    const std::string other =
        "[WINDOWS_SIZES]\nMain_Width=1900\nMiddle_List_Width=900\nMain_Height=1000\n"
        "Holder_Left_Width=350\nHolder_Right_Width=400\n";
    write(other);
    EXPECT_EQ(app::SaveWindowSizes(context_, laidOut), QString());
    EXPECT_EQ(written(), other);
    laidOut.holderLeftWidth = 222;
    EXPECT_EQ(app::SaveWindowSizes(context_, laidOut), QString());
    EXPECT_EQ(value("WINDOWS_SIZES", "Holder_Left_Width"), "222");
    EXPECT_EQ(value("WINDOWS_SIZES", "Main_Width"), "1280");
}

TEST_F(SettingsStoreTest, AToolThatIsGoneHereIsNotTakenFromAnother) {
    write("[Main]\nViewMode=1\n[PATHS]\nFFMpegPath=/gone/ffmpeg\n");
    app::LoadSettings(context_);
    context_.ffmpegPath.clear();
    app::takeAsLoaded(context_, "PATHS");
    write("[Main]\nViewMode=1\n[PATHS]\nFFMpegPath=/found again/ffmpeg\n");
    EXPECT_EQ(app::SaveSettings(context_), QString());
    EXPECT_EQ(value("PATHS", "FFMpegPath"), "/found again/ffmpeg");

    EXPECT_EQ(app::saveToolPath(context_, "FFMpegPath", "/ours/ffmpeg"), QString());
    EXPECT_EQ(value("PATHS", "FFMpegPath"), "/ours/ffmpeg");
}

}  // namespace
