#include "tags/FilterWords.h"

#include <QStringList>
#include <algorithm>

namespace tags {

bool matchesWords(const QString& filter, std::initializer_list<QStringView> texts) {
    const QStringList words = filter.split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(words, [&](const QString& word) {
        return std::ranges::any_of(
            texts, [&](QStringView text) { return text.contains(word, Qt::CaseInsensitive); });
    });
}

}  // namespace tags
