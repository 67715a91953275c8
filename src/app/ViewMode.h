#pragma once

#include "app/NumberedNames.h"

namespace app {

/// How the file list shows its items. The numbers are what the settings file holds.
enum class ViewMode { Details = 1, Tiles = 2, Thumbnails = 3, Jumbo = 4 };

/// All values, in the order of their numbers.
std::span<const NumberedName> viewModes();

/// Throws InvalidEnumeration with "ViewMode::_from_integral: invalid argument" for any other number.
ViewMode viewModeFromIntegral(int number);
/// Throws InvalidEnumeration with "ViewMode::_from_string: invalid argument" for any other text.
ViewMode viewModeFromString(const QString& name);
QString toString(ViewMode mode);

}  // namespace app
