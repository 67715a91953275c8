#pragma once

/// Numbers of the controls that several forms with lists of tags have.
namespace taglists::control {

inline constexpr int kQuestion = 924;
inline constexpr int kPlace = 80402;
inline constexpr int kHelp = 80404;

}  // namespace taglists::control
