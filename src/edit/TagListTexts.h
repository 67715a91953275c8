#pragma once

/// Numbers of the language file's strings in the lists of tags.
namespace edit::text {

inline constexpr int kTagColumn = 461;
inline constexpr int kTagValueColumn = 478;
inline constexpr int kGroupColumn = 481;

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

}  // namespace edit::text
