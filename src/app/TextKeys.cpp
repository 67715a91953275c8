#include "app/TextKeys.h"

#include <algorithm>
#include <cstring>

namespace app {

namespace {

constexpr TextKey kTextKeys[] = {
#include "app/TextKeys.inc"
};

}  // namespace

std::span<const TextKey> textKeys() {
    return kTextKeys;
}

QString keyOfText(int number) {
    const auto* const row = std::ranges::lower_bound(kTextKeys, number, {}, &TextKey::number);
    if (row == std::end(kTextKeys) || row->number != number) return {};
    const QString key = QString::fromLatin1(row->key);
    return std::strchr(row->key, ':') != nullptr ? key : key + u' ' + QString::number(number);
}

QString keyAndValues(int number, std::initializer_list<QString> values) {
    QString said = keyOfText(number);
    for (const QString& value : values) said += u' ' + value;
    return said;
}

}  // namespace app
