#pragma once

#include <QString>
#include <initializer_list>

namespace tags {

/// Whether each word of the filter stands in one of the texts, without regard to case. A filter without words
/// matches everything.
bool matchesWords(const QString& filter, std::initializer_list<QStringView> texts);

}  // namespace tags
