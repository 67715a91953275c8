#pragma once

#include <QByteArrayView>

namespace app {

/// Whether Qt may be given the bytes as a resource collection: they are one of the first format of rcc, with
/// data, names and tree in this order, whose tree has no node, name or content outside of them and no circle.
/// Qt follows what stands there without looking, and a damaged file can have a right check sum.
[[nodiscard]] bool isSoundCollection(QByteArrayView bytes);

}  // namespace app
