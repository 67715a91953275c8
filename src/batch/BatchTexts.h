#pragma once

/// Numbers of the batch operations' own texts in the language file.
namespace batch::text {

inline constexpr int kSettingFileDates = 82001;  ///< titles while an operation runs
inline constexpr int kRenamingByShutterCount = 82002;
inline constexpr int kRenamingByDateAndMaker = 82003;
inline constexpr int kRenamingByDateAndModel = 82004;
inline constexpr int kRemovingThumbnails = 82005;

inline constexpr int kReportNotWritable = 82010;  ///< "%s" is the file, "%s" the reason
inline constexpr int kNoSuchFolder = 82011;       ///< "%s" is the folder
inline constexpr int kChooseFolder = 82012;
inline constexpr int kNoFilesInFolder = 82013;  ///< "%s" is the folder
inline constexpr int kReportShortened = 82014;  ///< "%s" is the file with the whole text
inline constexpr int kLineShortened = 82015;

}  // namespace batch::text
