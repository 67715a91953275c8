#pragma once

#include "properties/PropertyValues.h"

namespace TagLib::ASF {
class Tag;
}

/// What Windows Media files hold beside TagLib's property map: who directed, what was broadcast, and the
/// identifiers that players and shops gave. Any thread.
namespace properties {

bool windowsMediaCanGive(PropertyId property);

/// Adds what the tag has.
void addWindowsMediaTags(const TagLib::ASF::Tag& tag, PropertyValues& values);

/// "{DB9830BD-3AB3-4FAB-8A37-1A995F7FF74B}" from the sixteen bytes as they stand in files; empty when they
/// are none or all zeros.
QString guidText(const QByteArray& bytes);

}  // namespace properties
