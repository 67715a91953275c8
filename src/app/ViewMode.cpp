#include "app/ViewMode.h"

#include <array>

namespace app {

namespace {

constexpr auto kViewModes = std::to_array<NumberedName>({
    {1, QLatin1StringView("Details")},
    {2, QLatin1StringView("Tiles")},
    {3, QLatin1StringView("Thumbnails")},
    {4, QLatin1StringView("Jumbo")},
});

}  // namespace

std::span<const NumberedName> viewModes() {
    return kViewModes;
}

ViewMode viewModeFromIntegral(int number) {
    if (nameOfNumber(kViewModes, number).isEmpty())
        throw InvalidEnumeration("ViewMode::_from_integral: invalid argument");
    return static_cast<ViewMode>(number);
}

ViewMode viewModeFromString(const QString& name) {
    const int number = numberOfName(kViewModes, name);
    if (number < 0) throw InvalidEnumeration("ViewMode::_from_string: invalid argument");
    return static_cast<ViewMode>(number);
}

QString toString(ViewMode mode) {
    return nameOfNumber(kViewModes, static_cast<int>(mode));
}

}  // namespace app
