#pragma once

/// Numbers of the language file's strings that the edits of single tags show, and of the controls of their
/// forms.
namespace edit::text {

inline constexpr int kModify = 80001;  ///< "%s" is the tag
inline constexpr int kNewLine = 80002;
inline constexpr int kEntryLines = 80003;
inline constexpr int kNoInteger = 80004;          ///< "%s" is what was typed
inline constexpr int kNoRational = 80005;         ///< "%s" is what was typed
inline constexpr int kNoDate = 80006;             ///< "%s" is the present value
inline constexpr int kKeptOfTime = 80007;         ///< "%s" is the fraction and the zone
inline constexpr int kFileGone = 80010;           ///< "%s" is the file
inline constexpr int kFileChanged = 80011;        ///< "%s" is the file
inline constexpr int kWriteNevertheless = 80012;  ///< "%s" is the file
inline constexpr int kWritten = 80013;            ///< "%s" is the tag, "%s" the file
inline constexpr int kNotInList = 80014;          ///< "%s" is the value
inline constexpr int kWriteStopped = 80015;       ///< "%s" is the file
inline constexpr int kCannotBeDeleted = 80016;    ///< "%s" is the tag
inline constexpr int kUnchanged = 80017;          ///< "%s" is the tag
inline constexpr int kDeleted = 80018;            ///< "%s" is the tag or group, "%s" the file
inline constexpr int kNoRowChosen = 80021;
inline constexpr int kNoRating = 80008;  ///< "%s" is the present value

}  // namespace edit::text

namespace edit::control {

inline constexpr int kQuestion = 924;
inline constexpr int kText = 1694;
inline constexpr int kRating = 1695;
inline constexpr int kDate = 1697;
inline constexpr int kChoice = 1699;
inline constexpr int kTime = 1700;
inline constexpr int kTagLabel = 80401;
inline constexpr int kPlace = 80402;
inline constexpr int kHint = 80403;
inline constexpr int kHelp = 80404;
inline constexpr int kNow = 80405;

}  // namespace edit::control
