#pragma once

#include "app/LanguageFile.h"

#include <QString>
#include <cstddef>
#include <optional>

namespace taglists {

/// Numbers of the language file's strings in the dialogs that remove and copy tags.
namespace text {

inline constexpr int kFiles = 81000;  ///< "%s" is the number
inline constexpr int kOneFile = 81001;
inline constexpr int kRemoveExif = 81010;  ///< "%s" is the files, here and in the next
inline constexpr int kRemoveIptc = 81011;
inline constexpr int kRemoveXmp = 81012;
inline constexpr int kRemoveIccProfile = 81013;
inline constexpr int kRemoveGeotag = 81014;
inline constexpr int kRemoveEverything = 81015;
inline constexpr int kWhatStays = 81016;
inline constexpr int kRemoveTags = 81020;
inline constexpr int kRemoveGroups = 81021;
inline constexpr int kDeleteMetadata = 81022;
inline constexpr int kCopyTags = 81023;
inline constexpr int kRemoveTagsOfGroup = 81024;  ///< "%s" is the group
inline constexpr int kRemoveTagsOfFile = 81025;
inline constexpr int kReadingTags = 81026;  ///< "%s" is the files
inline constexpr int kHeldBy = 81030;       ///< "%s" is a number, the second "%s" the files
inline constexpr int kNothingToRemove = 81031;
inline constexpr int kGroupsRemoved = 81032;  ///< "%s" is the files
inline constexpr int kEndedWithReport = 81033;
inline constexpr int kNotCarriedOut = 81034;
inline constexpr int kFilterGroups = 81035;
inline constexpr int kCountOfGroups = 81036;  ///< "%s" of "%s" groups shown
inline constexpr int kChooseSource = 81040;
inline constexpr int kNoSuchSource = 81041;  ///< "%s" is what was typed
inline constexpr int kChooseFamilies = 81042;

}  // namespace text

/// "1 file", "12 files".
QString filesText(const app::LanguageFile& language, std::size_t count);

/// What a family removal asks before it begins: what goes, and from how many files. Nothing for a command
/// that removes no family.
std::optional<QString> familyRemovalQuestion(const app::LanguageFile& language, int commandId,
                                             std::size_t files);

/// The title of a family removal while it runs; the same texts without the question mark.
QString familyRemovalTitle(const app::LanguageFile& language, int commandId, std::size_t files);

/// What RemoveDialogTypes says at its end.
QString typesRemovedText(const app::LanguageFile& language, bool wasRun, bool hasReport, std::size_t files);

/// Where copyTags cannot begin, the number of the string that says why; 0 when it can.
int copyRefusal(bool sourceExists, bool anyFamily);

}  // namespace taglists
