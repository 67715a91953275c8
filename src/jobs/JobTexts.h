#pragma once

/// Numbers of the language file's strings that gathering and reporting show.
namespace jobs::text {

inline constexpr int kReportNotWritable = 82010;  ///< "%s" is the file, "%s" the reason
inline constexpr int kNoSuchFolder = 82011;       ///< "%s" is the folder
inline constexpr int kChooseFolder = 82012;
inline constexpr int kNoFilesInFolder = 82013;  ///< "%s" is the folder
inline constexpr int kReportShortened = 82014;  ///< "%s" is the file with the whole text
inline constexpr int kLineShortened = 82015;

}  // namespace jobs::text
