#pragma once

/// Numbers of the batch operations' own texts in the language file.
namespace batch::text {

inline constexpr int kSettingFileDates = 82001;  ///< titles while an operation runs
inline constexpr int kRenamingByShutterCount = 82002;
inline constexpr int kRenamingByDateAndMaker = 82003;
inline constexpr int kRenamingByDateAndModel = 82004;
inline constexpr int kRemovingThumbnails = 82005;

}  // namespace batch::text
