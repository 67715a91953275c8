#include "app/SettingsTable.h"

#include <array>

namespace app {

namespace {

template <auto... Members>
auto& setting(AppContext& context) {
    return (context.settings.*....*Members);
}

template <auto Member>
std::filesystem::path& path(AppContext& context) {
    return context.*Member;
}

// Two asymmetries are meant: the solid flag of the group headers is read under another name than it is
// written under, so that it never survives a restart, and the report flag is written under two names. The
// sections Main and MAIN are one section to the reader, which looks names up without case.
constexpr auto kSettings = std::to_array<SettingRow>({
    // clang-format off
    {"Nodes", "1", "1", ReadAt::StartFolder, setting<&Settings::startFolder>},
    {"Main", "SizeDisplayFormat", "SizeDisplayFormat", ReadAt::Late, setting<&Settings::main, &Settings::Main::sizeDisplayFormat>},
    {"Main", "ShowFolders", "ShowFolders", ReadAt::Late, setting<&Settings::main, &Settings::Main::showFolders>},
    {"Main", "ShowFoldersSizes", "ShowFoldersSizes", ReadAt::Late, setting<&Settings::main, &Settings::Main::showFoldersSizes>},
    {"Main", "ShowFullTitlePath", "ShowFullTitlePath", ReadAt::Late, setting<&Settings::main, &Settings::Main::showFullTitlePath>},
    {"Main", "ShowStatusBar", "ShowStatusBar", ReadAt::Late, setting<&Settings::main, &Settings::Main::showStatusBar>},
    {"Main", "ShowQuickView", "ShowQuickView", ReadAt::Late, setting<&Settings::main, &Settings::Main::showQuickView>},
    {"Main", "ExportAllTo", "ExportAllTo", ReadAt::Late, setting<&Settings::main, &Settings::Main::exportAllTo>},
    {"Main", "ExportAllWhat", "ExportAllWhat", ReadAt::Late, setting<&Settings::main, &Settings::Main::exportAllWhat>},
    {"Main", "Language", "Language", ReadAt::Late, setting<&Settings::main, &Settings::Main::language>},
    {"Main", "ShowSmartDetails", "ShowSmartDetails", ReadAt::Late, setting<&Settings::main, &Settings::Main::showSmartDetails>},
    {"Main", "SortMode", "SortMode", ReadAt::Late, setting<&Settings::main, &Settings::Main::sortMode>},
    {"Main", "SortAscending", "SortAscending", ReadAt::Late, setting<&Settings::main, &Settings::Main::sortAscending>},
    {"Main", "ViewMode", "ViewMode", ReadAt::Late, setting<&Settings::main, &Settings::Main::viewMode>},
    {"MetadataList", "ShowFileDefault", "ShowFileDefault", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showFileDefault>},
    {"MetadataList", "ShowExif", "ShowExif", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showExif>},
    {"MetadataList", "ShowComposite", "ShowComposite", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showComposite>},
    {"MetadataList", "ShowGps", "ShowGps", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showGps>},
    {"MetadataList", "ShowIptc", "ShowIptc", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showIptc>},
    {"MetadataList", "ShowIcc", "ShowIcc", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showIcc>},
    {"MetadataList", "ShowMakerNotes", "ShowMakerNotes", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showMakerNotes>},
    {"MetadataList", "ShowXmp", "ShowXmp", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showXmp>},
    {"MetadataList", "ShowUnknown", "ShowUnknown", ReadAt::Late, setting<&Settings::metadataList, &Settings::MetadataList::showUnknown>},
    {"Misc", "ShowReportOnError", "ShowReportOnError", ReadAt::Late, setting<&Settings::showReportOnError>},
    {"Lists", "ShowMetadataWindow", "ShowMetadataWindow", ReadAt::Late, setting<&Settings::lists, &Settings::Lists::showMetadataWindow>},
    {"Lists", "ShowGpsWindow", "ShowGpsWindow", ReadAt::Late, setting<&Settings::lists, &Settings::Lists::showGpsWindow>},
    {"Lists", "ShowHexaDumpWindow", "ShowHexaDumpWindow", ReadAt::Late, setting<&Settings::lists, &Settings::Lists::showHexaDumpWindow>},
    {"Lists", "ShowHelpWindow", "ShowHelpWindow", ReadAt::Late, setting<&Settings::lists, &Settings::Lists::showHelpWindow>},
    {"ListView", "ShowCheckBox", "ShowCheckBox", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::showCheckBox>},
    {"ListView", "DisplayMixedFilesAndFolders", "DisplayMixedFilesAndFolders", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::displayMixedFilesAndFolders>},
    {"ListView", "FullRow", "FullRow", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::fullRow>},
    {"ListView", "HideSystemFiles", "HideSystemFiles", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::hideSystemFiles>},
    {"ListView", "InsertSorted", "InsertSorted", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::insertSorted>},
    {"ListView", "TileSize", "TileSize", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::tileSize>},
    {"ListView", "ShowGridlines", "ShowGridlines", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::showGridlines>},
    {"ListView", "ShowInGroups", "ShowInGroups", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::showInGroups>},
    {"ListView", "ShowInfoTips", "ShowInfoTips", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::showInfoTips>},
    {"ListView", "UseNaturalSortOrder", "UseNaturalSortOrder", ReadAt::Late, setting<&Settings::listView, &Settings::ListView::useNaturalSortOrder>},
    {"ListView", "", "ShowExtensions", ReadAt::Never, setting<&Settings::listView, &Settings::ListView::showExtensions>},
    {"ListView", "", "ShowFolderSizes", ReadAt::Never, setting<&Settings::listView, &Settings::ListView::showFolderSizes>},
    {"ListViewMetadata", "RightAligned", "RightAligned", ReadAt::Late, setting<&Settings::listViewMetadata, &Settings::ListViewMetadata::rightAligned>},
    {"ListViewMetadata", "LibelleHelp", "LibelleHelp", ReadAt::Late, setting<&Settings::listViewMetadata, &Settings::ListViewMetadata::libelleHelp>},
    {"Metadata_Panel", "COL_DATA", "COL_DATA", ReadAt::Late, setting<&Settings::metadataValueColumnWidth>},
    {"MAIN", "", "CheckForNewVersionAtStart", ReadAt::Never, setting<&Settings::main, &Settings::Main::checkForNewVersionAtStart>},
    {"MAIN", "", "ForceSize", ReadAt::Never, setting<&Settings::main, &Settings::Main::forceSize>},
    {"MAIN", "", "HideLinkExtensionGlobal", ReadAt::Never, setting<&Settings::main, &Settings::Main::hideLinkExtensionGlobal>},
    {"Main", "HeightAddModify", "HeightAddModify", ReadAt::Late, setting<&Settings::main, &Settings::Main::heightAddModify>},
    {"Main", "WidthAddModify", "WidthAddModify", ReadAt::Late, setting<&Settings::main, &Settings::Main::widthAddModify>},
    {"Tiles", "ShowRating", "ShowRating", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showRating>},
    {"Tiles", "showAperture", "showAperture", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showAperture>},
    {"Tiles", "showDateTimeOriginal", "showDateTimeOriginal", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showDateTimeOriginal>},
    {"Tiles", "showFlash", "showFlash", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showFlash>},
    {"Tiles", "showFocalLength", "showFocalLength", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showFocalLength>},
    {"Tiles", "showISO", "showISO", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showIso>},
    {"Tiles", "showImageSize", "showImageSize", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showImageSize>},
    {"Tiles", "showModel", "showModel", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showModel>},
    {"Tiles", "showShutterSpeed", "showShutterSpeed", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showShutterSpeed>},
    {"Tiles", "showWhiteBalance", "showWhiteBalance", ReadAt::Late, setting<&Settings::tiles, &Settings::Tiles::showWhiteBalance>},
    {"Dark", "EnableDarkMode", "EnableDarkMode", ReadAt::Early, setting<&Settings::dark, &Settings::Dark::enableDarkMode>},
    {"Dark", "DarkTone", "DarkTone", ReadAt::Early, setting<&Settings::dark, &Settings::Dark::darkTone>},
    {"Dark", "DarkToneButtonLeft", "DarkToneButtonLeft", ReadAt::Early, setting<&Settings::dark, &Settings::Dark::darkToneButtonLeft>},
    {"Dark", "DarkToneHighlight", "DarkToneHighlight", ReadAt::Early, setting<&Settings::dark, &Settings::Dark::darkToneHighlight>},
    {"PATHS", "ExifToolPath", "ExifToolPath", ReadAt::Late, path<&AppContext::exifToolPath>},
    {"PATHS", "FFMpegPath", "FFMpegPath", ReadAt::Late, path<&AppContext::ffmpegPath>},
    {"PATHS", "ImageMagickPath", "ImageMagickPath", ReadAt::Late, path<&AppContext::imageMagickPath>},
    {"ExifTool", "DataLanguage", "DataLanguage", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::dataLanguage>},
    {"ExifTool", "DisplayUnknownTags", "DisplayUnknownTags", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::displayUnknownTags>},
    {"ExifTool", "PreserveDateTime", "PreserveDateTime", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::preserveDateTime>},
    {"ExifTool", "IgnoreMinorErrors", "IgnoreMinorErrors", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::ignoreMinorErrors>},
    {"ExifTool", "IgnoreComposite", "IgnoreComposite", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::ignoreComposite>},
    {"ExifTool", "IgnoreXML", "IgnoreXML", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::ignoreXml>},
    {"ExifTool", "IgnoreFILE", "IgnoreFILE", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::ignoreFile>},
    {"ExifTool", "OverwriteExistingFilesConfirmation", "OverwriteExistingFilesConfirmation", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::overwriteExistingFilesConfirmation>},
    {"ExifTool", "UseMWG", "UseMWG", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::useMwg>},
    {"ExifTool", "CorrectedCommands", "CorrectedCommands", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::correctedCommands>},
    {"ExifTool", "WarmStart", "WarmStart", ReadAt::Late, setting<&Settings::exifTool, &Settings::ExifTool::warmStart>},
    {"GPS", "GpsViewType", "GpsViewType", ReadAt::Late, setting<&Settings::gps, &Settings::Gps::viewType>},
    {"GPS", "GpsViewTraffic", "GpsViewTraffic", ReadAt::Late, setting<&Settings::gps, &Settings::Gps::viewTraffic>},
    {"GPS", "GpsZoomLevel", "GpsZoomLevel", ReadAt::Late, setting<&Settings::gps, &Settings::Gps::zoomLevel>},
    {"TreeView", "CheckPinnedToNamespaceTreeProperty", "CheckPinnedToNamespaceTreeProperty", ReadAt::Late, setting<&Settings::treeView, &Settings::TreeView::checkPinnedToNamespaceTreeProperty>},
    {"TreeView", "TreeViewDelayEnabled", "TreeViewDelayEnabled", ReadAt::Late, setting<&Settings::treeView, &Settings::TreeView::delayEnabled>},
    {"TreeView", "OneClickActivate", "OneClickActivate", ReadAt::Late, setting<&Settings::treeView, &Settings::TreeView::oneClickActivate>},
    {"TreeView", "TreeViewAutoExpandSelected", "TreeViewAutoExpandSelected", ReadAt::Late, setting<&Settings::treeView, &Settings::TreeView::autoExpandSelected>},
    {"TreeView", "ShowSystemFolders", "ShowSystemFolders", ReadAt::Late, setting<&Settings::treeView, &Settings::TreeView::showSystemFolders>},
    {"TreeView", "ShowHiddenFolders", "ShowHiddenFolders", ReadAt::Late, setting<&Settings::treeView, &Settings::TreeView::showHiddenFolders>},
    {"TreeView", "SynchronizeTreeview", "SynchronizeTreeview", ReadAt::Late, setting<&Settings::treeView, &Settings::TreeView::synchronizeTreeview>},
    {"Main", "", "showReportOnError", ReadAt::Never, setting<&Settings::showReportOnError>},
    {"Colors", "colorHeaderListMain", "colorHeaderListMain", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::headerListMain>},
    {"Colors", "colorHeader_ListMetadata", "colorHeader_ListMetadata", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::headerListMetadata>},
    {"Colors", "colorLibelle", "colorLibelle", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::libelle>},
    {"Colors", "colorDefault", "colorDefault", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::defaultText>},
    {"Colors", "colorSystem", "colorSystem", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::system>},
    {"Colors", "colorUnknownTag", "colorUnknownTag", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::unknownTag>},
    {"Colors", "colorTagHexa", "colorTagHexa", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::tagHexa>},
    {"Colors", "colorTagId", "colorTagId", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::tagId>},
    {"Colors", "colorCanBeModifiedTag", "colorCanBeModifiedTag", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::canBeModifiedTag>},
    {"Colors", "iHighLight", "iHighLight", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::highLight>},
    {"Colors", "boldHeader_ListMain", "boldHeader_ListMain", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::boldHeaderListMain>},
    {"Colors", "boldHeader_ListMetadata", "boldHeader_ListMetadata", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::boldHeaderListMetadata>},
    {"Colors", "colorGroupHeaderIUseSolid", "colorGroupHeaderUseSolid", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::groupHeaderUseSolid>},
    {"Colors", "colorGroupHeaderVerticalGradient", "colorGroupHeaderVerticalGradient", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::groupHeaderVerticalGradient>},
    {"Colors", "colorGroupHeaderText", "colorGroupHeaderText", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::groupHeaderText>},
    {"Colors", "colorGroupHeaderHigh", "colorGroupHeaderHigh", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::groupHeaderHigh>},
    {"Colors", "colorGroupHeaderLow", "colorGroupHeaderLow", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::groupHeaderLow>},
    {"Colors", "colorGroupHeaderSolid", "colorGroupHeaderSolid", ReadAt::Early, setting<&Settings::colors, &Settings::Colors::groupHeaderSolid>},
    {"BATCH", "ExifUserComment", "ExifUserComment", ReadAt::Late, setting<&Settings::batch, &Settings::Batch::exifUserComment>},
    {"BATCH", "DefaultSavePath", "DefaultSavePath", ReadAt::Late, setting<&Settings::batch, &Settings::Batch::defaultSavePath>},
    {"BATCH", "DeleteAllSafetyCopy", "DeleteAllSafetyCopy", ReadAt::Late, setting<&Settings::deleteAll, &Settings::DeleteAll::safetyCopy>},
    {"BATCH", "DeleteAllKeepDate", "DeleteAllKeepDate", ReadAt::Late, setting<&Settings::deleteAll, &Settings::DeleteAll::keepDate>},
    {"WINDOWS_SIZES", "Holder_Left_Width", "Holder_Left_Width", ReadAt::Early, setting<&Settings::windowSizes, &Settings::WindowSizes::holderLeftWidth>},
    {"WINDOWS_SIZES", "Middle_List_Width", "Middle_List_Width", ReadAt::Early, setting<&Settings::windowSizes, &Settings::WindowSizes::middleListWidth>},
    {"WINDOWS_SIZES", "Holder_Right_Width", "Holder_Right_Width", ReadAt::Early, setting<&Settings::windowSizes, &Settings::WindowSizes::holderRightWidth>},
    {"WINDOWS_SIZES", "Main_Width", "Main_Width", ReadAt::Early, setting<&Settings::windowSizes, &Settings::WindowSizes::mainWidth>},
    {"WINDOWS_SIZES", "", "Main_Height", ReadAt::Never, setting<&Settings::windowSizes, &Settings::WindowSizes::mainHeight>},
    {"MainWindow-Position", "Left", "Left", ReadAt::Position, setting<&Settings::windowPosition, &Settings::WindowPosition::left>},
    {"MainWindow-Position", "Top", "Top", ReadAt::Position, setting<&Settings::windowPosition, &Settings::WindowPosition::top>},
    {"MainWindow-Position", "Right", "Right", ReadAt::Position, setting<&Settings::windowPosition, &Settings::WindowPosition::right>},
    {"MainWindow-Position", "Bottom", "Bottom", ReadAt::Position, setting<&Settings::windowPosition, &Settings::WindowPosition::bottom>},
    // clang-format on
});

}  // namespace

std::span<const SettingRow> settingsTable() {
    return kSettings;
}

}  // namespace app
