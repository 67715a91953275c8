#include "browser/ColumnText.h"

#include "browser/FolderReader.h"
#include "browser/PropertyText.h"
#include "browser/TypeNames.h"

#include <QDateTime>
#include <QLocale>

namespace browser {
namespace {

struct ColumnFormat {
    std::uint32_t columnType;
    QString (*text)(const std::filesystem::path& path, const ListItem& item);
};

/// The columns that need no look into the file: most lists show no others.
constexpr std::array kFormats{
    ColumnFormat{6,
                 [](const std::filesystem::path&, const ListItem& item) {
                     return item.findDataValid ? dateText(item.findData.modified) : QString();
                 }},
    ColumnFormat{9,
                 [](const std::filesystem::path&, const ListItem& item) {
                     return item.findDataValid && item.kind == ItemKind::File ? sizeText(item.findData.size)
                                                                              : QString();
                 }},
    ColumnFormat{70,
                 [](const std::filesystem::path& path, const ListItem& item) {
                     return TypeNames::instance().ofFile(path, item.kind).comment;
                 }},
};

}  // namespace

QString GetColumnText(const std::filesystem::path& path, std::uint32_t columnType) {
    const auto format = std::ranges::find(kFormats, columnType, &ColumnFormat::columnType);
    if (format == kFormats.end()) {
        const tags::PropertyRecord* property = tags::findPropertyColumn(columnType);
        return property == nullptr ? QString() : GetPropertyText(path, *property);
    }
    ListItem item;
    if (!readItem(path, item) || item.isFolder()) return {};
    return format->text(path, item);
}

QString sizeText(std::uint64_t bytes) {
    return QLocale().formattedDataSize(static_cast<qint64>(bytes), 1, QLocale::DataSizeTraditionalFormat);
}

QString dateText(std::int64_t nanoseconds) {
    constexpr std::int64_t kNanosecondsInAMillisecond = 1'000'000;
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(nanoseconds / kNanosecondsInAMillisecond);
    return QLocale().toString(time, QLocale::ShortFormat);
}

}  // namespace browser
