#include "app/NumberedNames.h"

#include <algorithm>

namespace app {

QString nameOfNumber(std::span<const NumberedName> table, int number) {
    const auto found = std::ranges::find(table, number, &NumberedName::number);
    return found == table.end() ? QString() : QString(found->name);
}

int numberOfName(std::span<const NumberedName> table, const QString& name) {
    const auto found = std::ranges::find_if(table, [&](const NumberedName& row) { return name == row.name; });
    return found == table.end() ? -1 : found->number;
}

}  // namespace app
