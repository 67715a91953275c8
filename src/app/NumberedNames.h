#pragma once

#include <QLatin1StringView>
#include <QString>
#include <span>
#include <stdexcept>

namespace app {

/// One value of an enumeration that is stored by its number and carries its own text.
struct NumberedName {
    int number;
    QLatin1StringView name;
};

/// A stored number that is none of the enumeration's values. what() is "<enumeration>::_from_integral:
/// invalid argument"; an unknown text gives "<enumeration>::_from_string: invalid argument".
class InvalidEnumeration : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The name of a number, or an empty text when the table has none.
QString nameOfNumber(std::span<const NumberedName> table, int number);

/// The number of a name, which is compared to the letter; -1 when the table has none.
int numberOfName(std::span<const NumberedName> table, const QString& name);

}  // namespace app
