#pragma once

namespace app {

/// How command lines are composed, and what dialogs make of them. The designed lines stay exact to the blank,
/// also those that cannot do what their dialog promises; each of these has a corrected line beside it
/// (docs/commands.md). Whoever begins an operation asks commandFormOf() once and hands the answer on, so that
/// an operation has one form from its first line to its last.
enum class CommandForm { Designed, Corrected };

}  // namespace app
