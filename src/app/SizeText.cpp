#include "app/SizeText.h"

#include <QLocale>

#include <array>
#include <cmath>

namespace app {

namespace {

constexpr std::array<const char*, 6> kUnits = {"bytes", "KB", "MB", "GB", "TB", "PB"};

int forcedDivisions(int format) {
    switch (format) {
        case 1:
            return 0;
        case 2:
            return 1;
        case 4:
            return 3;
        case 5:
            return 4;
        case 6:
            return 5;
        default:
            return 2;
    }
}

}  // namespace

QString sizeText(std::uint64_t bytes, int forcedFormat) {
    double value = static_cast<double>(bytes);
    std::size_t unit = 0;
    if (forcedFormat > 0) {
        unit = static_cast<std::size_t>(forcedDivisions(forcedFormat));
        value /= std::pow(1024.0, static_cast<double>(unit));
    } else {
        for (; value >= 1024 && unit + 1 < kUnits.size(); ++unit) value /= 1024;
    }
    int decimals = unit == 0 ? 0 : value < 10 ? 3 : value < 100 ? 2 : 1;
    const double scale = std::pow(10.0, decimals);
    const QString number = QLocale().toString(std::floor(value * scale) / scale, 'f', decimals);
    return number + QLatin1Char(' ') + QLatin1String(kUnits[unit]);
}

}  // namespace app
