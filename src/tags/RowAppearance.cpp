#include "tags/RowAppearance.h"

#include <algorithm>

namespace tags {

namespace {

constexpr int kMostEmptyStars = 5;

PanelColour setting(std::uint32_t bgr) {
    return {PanelColour::Source::Setting, bgr};
}

PanelColour valueColour(const MetadataRow& row, const std::optional<TagRecord>& record,
                        const app::Settings::Colors& colours) {
    static const std::uint32_t kFile = *FindGroup(u"[File]");
    static const std::uint32_t kSystem = *FindGroup(u"[System]");
    if (!record) return setting(colours.unknownTag);
    if (record->writable) {
        if (row.groupId == kSystem) return {PanelColour::Source::Link, 0};
        return setting(record->valueKind == ValueKind::Binary ? colours.tagHexa : colours.canBeModifiedTag);
    }
    if (row.groupId == kFile) return {PanelColour::Source::Text, 0};
    return setting(row.groupId == kSystem ? colours.system : colours.defaultText);
}

}  // namespace

RowAppearance appearanceOf(const MetadataRow& row, const std::optional<TagRecord>& record,
                           const app::Settings::Colors& colours, const RatingMemory& memory) {
    RowAppearance look;
    look.tagColour = setting(colours.libelle);
    look.idColour = setting(colours.tagId);
    look.valueColour = valueColour(row, record, colours);
    look.unknownMark = !record;
    if (record && (record->writable || record->valueKind == ValueKind::Binary))
        look.kindIcon = record->valueKind;
    look.stars = memory.Rating(row.tagId);
    if (!look.stars) look.stars = row.stars;
    return look;
}

StarCounts starsOf(int rating) {
    const int filled = std::max(rating, 0);
    return {filled, std::max(kMostEmptyStars - filled, 0)};
}

QString kindIconName(ValueKind kind) {
    switch (kind) {
        case ValueKind::Date:
            return QStringLiteral("kind-date");
        case ValueKind::Integer:
            return QStringLiteral("kind-integer");
        case ValueKind::Text:
            return QStringLiteral("kind-text");
        case ValueKind::Rating:
            return QStringLiteral("kind-rating");
        case ValueKind::List:
            return QStringLiteral("kind-list");
        case ValueKind::Binary:
            return QStringLiteral("kind-binary");
        case ValueKind::Rational:
            return QStringLiteral("kind-rational");
    }
    return {};
}

bool looksLikeAddress(QStringView value) {
    return value.startsWith(u"com.") || value.startsWith(u"http") || value.startsWith(u"vnd.youtube");
}

QString groupTitleWithCount(const QString& title, int count) {
    qsizetype end = title.indexOf(u'(');
    if (end < 0) end = title.size();
    if (end > 0 && end < title.size() && title[end - 1] == u' ') --end;
    return QStringLiteral("%1 (%2)").arg(title.first(end)).arg(count);
}

}  // namespace tags
