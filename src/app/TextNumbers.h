#pragma once

/// Numbers of the language file's strings that are this program's own choice: interface texts that belong to
/// no command. They stand above all command numbers.
namespace app::text {

inline constexpr int kFolderSize = 234;  ///< put before a size by "%s: %s"
inline constexpr int kGroupDelete = 165;
inline constexpr int kTagDelete = 166;
inline constexpr int kUnspecified = 264;
inline constexpr int kReportEmpty = 265;
inline constexpr int kFolder = 360;
inline constexpr int kOther = 361;
inline constexpr int kValueColumn = 474;
inline constexpr int kFolderSelected = 8175;
inline constexpr int kFoldersSelected = 8176;
inline constexpr int kFileSelected = 8177;
inline constexpr int kFilesSelected = 8178;
inline constexpr int kItems = 8183;

inline constexpr int kClickAFile = 70501;
inline constexpr int kEmptyFolder = 70502;
inline constexpr int kMetadataTitle = 70503;
inline constexpr int kGpsTitle = 70504;
inline constexpr int kHexaDumpTitle = 70505;
inline constexpr int kHelpTitle = 70506;
inline constexpr int kFoldersTitle = 70507;
inline constexpr int kAddressHint = 70508;
inline constexpr int kFolderUnreadable = 70509;  ///< "%s" is the folder, "%s" the reason
inline constexpr int kNoFileSelected = 70510;
inline constexpr int kNoTags = 70511;
inline constexpr int kCopyCell = 70512;
inline constexpr int kSettingsNotSaved = 70513;  ///< "%s" is the reason
inline constexpr int kAboutVersion = 70514;      ///< "%s" is the version
inline constexpr int kAboutExifTool = 70515;     ///< "%s" is the path
inline constexpr int kExpandAll = 70516;
inline constexpr int kCollapseAll = 70517;
inline constexpr int kFolderVanished = 70518;  ///< "%s" is the folder

inline constexpr int kRemoveFamily = 80022;
inline constexpr int kFolderNotWritable = 70520;  ///< "%s" is the folder
inline constexpr int kNoProgramOpens = 70521;     ///< "%s" is the file's name

}  // namespace app::text
