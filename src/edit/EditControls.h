#pragma once

/// Numbers of the controls in the forms of the value dialogs.
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
