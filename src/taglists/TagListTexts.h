#pragma once

/// Numbers of the language file's strings in the lists of tags.
namespace taglists::text {

inline constexpr int kTagColumn = 461;
inline constexpr int kTagValueColumn = 478;
inline constexpr int kGroupColumn = 481;
inline constexpr int kValuesCaption = 938;
inline constexpr int kChooseValuesTitle = 2182;

inline constexpr int kFilterHint = 80500;
inline constexpr int kWillBeRemoved = 80501;
inline constexpr int kNoTagMatches = 80502;
inline constexpr int kNoTagOfGroup = 80503;
inline constexpr int kCountOfRows = 80504;   ///< "%s" of "%s" rows shown
inline constexpr int kCountChanged = 80505;  ///< "%s" rows changed
inline constexpr int kCountTicked = 80506;   ///< "%s" rows ticked
inline constexpr int kEditValue = 80507;
inline constexpr int kEmptyValue = 80508;
inline constexpr int kUndoChange = 80509;
inline constexpr int kCopyValue = 80510;
inline constexpr int kModifyTitle = 80511;   ///< "%s" is the family, "%s" the files
inline constexpr int kAddTitle = 80512;      ///< "%s" is the group, "%s" the files
inline constexpr int kCountOfFiles = 80513;  ///< "%s" is the number
inline constexpr int kWrite = 80514;
inline constexpr int kFileNotRead = 80515;
inline constexpr int kNoTagOfMode = 80516;
inline constexpr int kNoValuesInFile = 80517;  ///< "%s" is the file
inline constexpr int kValuesLoaded = 80518;    ///< "%s" values, "%s" unknown names
inline constexpr int kNoGroupChosen = 80519;
inline constexpr int kGroupAndFile = 80019;  ///< "%s" is the group, "%s" the file
inline constexpr int kTagsOfFile = 80020;    ///< "%s" is the count, "%s" the file

}  // namespace taglists::text

namespace taglists::control {

inline constexpr int kQuestion = 924;
inline constexpr int kPlace = 80402;
inline constexpr int kHelp = 80404;

}  // namespace taglists::control
