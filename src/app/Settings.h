#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace app {

/// Everything the user can set, held in memory between start and exit. Loading and saving, with the keys, the
/// defaults and the corrections, stand in SettingsStore.h. The initialisers here are the defaults of missing
/// keys. Colours are 0xBBGGRR integers, as the settings file stores them. GUI thread only.
struct Settings {
    struct Main {
        int language = 9;  ///< number of the language file; 9 is English
        int sizeDisplayFormat = 2;
        bool showFolders = true;
        bool showFoldersSizes = false;
        bool showFullTitlePath = true;
        bool showStatusBar = true;
        bool showQuickView = true;
        int exportAllTo = 0;
        int exportAllWhat = 0;
        bool showSmartDetails = false;
        int sortMode = 1;
        bool sortAscending = true;
        int viewMode = 0;  ///< ViewMode's number; 0 is none of its values
        int heightAddModify = 500;
        int widthAddModify = 500;
        bool checkForNewVersionAtStart = false;
        bool forceSize = false;
        bool hideLinkExtensionGlobal = false;
    } main;

    struct ListView {
        bool showCheckBox = true;
        bool displayMixedFilesAndFolders = true;
        bool fullRow = true;
        bool hideSystemFiles = true;
        bool insertSorted = true;
        int tileSize = 150;  ///< pixels
        bool showGridlines = true;
        bool showInGroups = false;
        int showInfoTips = 10;         ///< any number but 0 is on
        int useNaturalSortOrder = 10;  ///< any number but 0 is on
        bool showExtensions = true;
        bool showFolderSizes = false;
    } listView;

    struct ListViewMetadata {
        bool rightAligned = true;
        bool libelleHelp = true;
    } listViewMetadata;

    struct ExifTool {
        int dataLanguage = 2;  ///< index into the table of -lang codes
        bool displayUnknownTags = true;
        bool preserveDateTime = true;
        bool ignoreMinorErrors = true;
        bool ignoreComposite = true;
        bool ignoreXml = true;
        bool ignoreFile = true;
        bool overwriteExistingFilesConfirmation = false;
        bool useMwg = true;
        bool correctedCommands = false;  ///< asked by way of commandFormOf() alone
        bool warmStart = true;  ///< keep an ExifTool ready, so that commands need not wait for its start
    } exifTool;

    /// Which families the metadata panel shows.
    struct MetadataList {
        bool showFileDefault = true;
        bool showExif = true;
        bool showComposite = false;
        bool showGps = false;
        bool showIptc = false;
        bool showIcc = false;
        bool showMakerNotes = false;
        bool showXmp = false;
        bool showUnknown = false;  ///< tags without a record get a row, unknown groups a header
    } metadataList;

    bool showReportOnError = false;

    /// At most one of the four is set.
    struct Lists {
        bool showMetadataWindow = false;
        bool showGpsWindow = false;
        bool showHexaDumpWindow = false;
        bool showHelpWindow = false;
    } lists;

    int metadataValueColumnWidth = 250;  ///< key COL_DATA, pixels

    struct Tiles {
        bool showRating = false;
        bool showAperture = false;
        bool showDateTimeOriginal = true;
        bool showFlash = true;
        bool showFocalLength = false;
        bool showIso = false;
        bool showImageSize = true;
        bool showModel = true;
        bool showShutterSpeed = false;
        bool showWhiteBalance = false;
    } tiles;

    struct Gps {
        int viewType = 1;
        bool viewTraffic = false;
        int zoomLevel = 3;
    } gps;

    struct TreeView {
        bool checkPinnedToNamespaceTreeProperty = true;
        bool delayEnabled = true;
        bool oneClickActivate = true;
        bool autoExpandSelected = true;
        bool showSystemFolders = false;
        bool showHiddenFolders = false;
        bool synchronizeTreeview = true;
    } treeView;

    struct Batch {
        QString exifUserComment;
        QString defaultSavePath;
    } batch;

    /// What the dialog that deletes everything offers besides.
    struct DeleteAll {
        bool safetyCopy = true;  ///< of each file before
        bool keepDate = true;    ///< of the files
        /// The designed form keeps its two boxes here, which say at the same time which families are chosen.
        bool boxOfExif = true;
        bool boxOfIptc = false;
    } deleteAll;

    struct Dark {
        bool enableDarkMode = false;
        int darkTone = 0;
        int darkToneButtonLeft = 0;
        int darkToneHighlight = 0;
    } dark;

    struct Colors {
        std::uint32_t headerListMain = 255;
        std::uint32_t headerListMetadata = 155;
        std::uint32_t libelle = 255;
        std::uint32_t defaultText = 0;
        std::uint32_t system = 0x4080FF;
        std::uint32_t unknownTag = 6146048;
        std::uint32_t tagHexa = 0xFF0000;
        std::uint32_t tagId = 255;
        std::uint32_t canBeModifiedTag = 65535;
        int highLight = 0;
        bool boldHeaderListMain = true;
        bool boldHeaderListMetadata = true;
        bool groupHeaderUseSolid = false;
        bool groupHeaderVerticalGradient = true;
        std::uint32_t groupHeaderText = 255;
        std::uint32_t groupHeaderHigh = 255;
        std::uint32_t groupHeaderLow = 155;
        std::uint32_t groupHeaderSolid = 155;
    } colors;

    /// Pixels.
    struct WindowSizes {
        int holderLeftWidth = 300;
        int middleListWidth = 300;
        int holderRightWidth = 300;
        int mainWidth = 0;
        int mainHeight = 0;
    } windowSizes;

    /// The main window's normal rectangle; right and bottom are coordinates.
    struct WindowPosition {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    } windowPosition;

    QString startFolder;  ///< section Nodes, key 1: the last folder shown
};

}  // namespace app
