#pragma once

#include <QString>
#include <cstdint>

namespace app {

/// A size for people: divided by 1024 until it falls below it, cut (not rounded) to three decimals below 10,
/// two below 100, else one; bytes have none. forcedFormat, when it is above 0, fixes the unit: 1 bytes, 2 KB,
/// 4 GB, 5 TB, 6 PB, any other MB.
QString sizeText(std::uint64_t bytes, int forcedFormat = 0);

}  // namespace app
