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

std::span<const NumberedName> ViewModes() {
    return kViewModes;
}

ViewMode ViewModeFromIntegral(int number) {
    if (NameOfNumber(kViewModes, number).isEmpty())
        throw InvalidEnumeration("ViewMode::_from_integral: invalid argument");
    return static_cast<ViewMode>(number);
}

ViewMode ViewModeFromString(const QString& name) {
    const int number = NumberOfName(kViewModes, name);
    if (number < 0) throw InvalidEnumeration("ViewMode::_from_string: invalid argument");
    return static_cast<ViewMode>(number);
}

QString ToString(ViewMode mode) {
    return NameOfNumber(kViewModes, static_cast<int>(mode));
}

}  // namespace app
