#include "panel/MetadataDelegate.h"

#include "app/SpokenText.h"
#include "controls/ColorArithmetic.h"
#include "controls/Icons.h"
#include "controls/ListColors.h"
#include "panel/MetadataListView.h"
#include "panel/PanelTexts.h"
#include "platform/Text.h"

#include <QPainter>

namespace panel {

namespace {

constexpr int kTextMargin = 6;
constexpr QSize kKindIcon(12, 12);
constexpr int kKindIconLeft = 5;
constexpr QSize kHelpMark(16, 16);
constexpr QPoint kHelpMarkPlace(2, 3);
constexpr QSize kStar(15, 13);
constexpr int kStarLeft = 2;

QColor paletteColour(const tags::PanelColour& colour, const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    switch (colour.source) {
        case tags::PanelColour::Source::Text:
            return palette.color(QPalette::Text);
        case tags::PanelColour::Source::Link:
            return controls::mirroredOn(palette.color(QPalette::Link), ground);
        case tags::PanelColour::Source::Setting:
            break;
    }
    return controls::mirroredOn(controls::colorFromStored(colour.bgr), ground);
}

void paintPicture(QPainter* painter, const QRect& place, const QString& name) {
    painter->drawPixmap(place,
                        controls::iconPixmap(name, place.size(), painter->device()->devicePixelRatioF()));
}

void paintKind(QPainter* painter, const QRect& cell, const tags::RowAppearance& look) {
    const QRect place(QPoint(cell.left() + kKindIconLeft, cell.center().y() - kKindIcon.height() / 2 + 1),
                      kKindIcon);
    if (look.kindIcon)
        paintPicture(painter, place, tags::kindIconName(*look.kindIcon));
    else if (look.unknownMark)
        paintPicture(painter, place, QStringLiteral("unknown-tag"));
}

void paintStars(QPainter* painter, const QRect& cell, int rating) {
    const tags::StarCounts stars = tags::starsOf(rating);
    QRect place(QPoint(cell.left() + kStarLeft + kTextMargin - 2, cell.center().y() - kStar.height() / 2 + 1),
                kStar);
    // No more than fit: a rating is a number from the file and may be anything.
    const int most = cell.width() / kStar.width() + 1;
    for (int drawn = 0; drawn < std::min(stars.filled + stars.empty, most); ++drawn) {
        paintPicture(painter, place,
                     drawn < stars.filled ? QStringLiteral("star-filled") : QStringLiteral("star-empty"));
        place.translate(kStar.width(), 0);
    }
}

/// Line ends and other controls would break the row; they show as a blank.
QString oneLine(QString text) {
    for (QChar& character : text)
        if (character.category() == QChar::Other_Control) character = u' ';
    return text;
}

/// No number of stars can say what such a rating does: the file was rejected.
bool isBelowZero(const QModelIndex& index, const tags::RowAppearance& look) {
    return index.column() == static_cast<int>(tags::PanelColumn::Value) && look.stars.value_or(0) < 0;
}

/// A row shows no more of a value than a wide screen holds.
constexpr qsizetype kLongestShown = 2048;

}  // namespace

MetadataDelegate::MetadataDelegate(const MetadataListModel& model, const tags::TagDictionary& dictionary,
                                   const tags::RatingMemory& memory, const app::Settings& settings,
                                   const tags::LabelLibrary* labels, QObject* parent)
    : GroupedListDelegate(parent),
      model_(model),
      dictionary_(dictionary),
      memory_(memory),
      settings_(settings),
      labels_(labels) {}

bool MetadataDelegate::hasHelpMark(const tags::MetadataRow& row) const {
    const app::Settings::ListViewMetadata& look = settings_.listViewMetadata;
    return labels_ != nullptr && (look.rightAligned || marksNamesAtTheLeft_) && look.libelleHelp &&
           labels_->CM_xxHasALibelle(row.tagId);
}

tags::RowAppearance MetadataDelegate::appearanceOf(const tags::MetadataRow& row) const {
    std::optional<tags::TagRecord> record;
    if (row.tagId >= 0) record = dictionary_.FindTagById(static_cast<std::uint32_t>(row.tagId));
    return tags::appearanceOf(row, record, settings_.colors, memory_);
}

QColor MetadataDelegate::colourOn(const tags::PanelColour& colour, const QPalette& palette,
                                  const QColor& ground) {
    return controls::readableOn(paletteColour(colour, palette), ground);
}

void MetadataDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    GroupedListDelegate::initStyleOption(option, index);
    const tags::RowAppearance look = appearanceOf(model_.row(index.row()));
    tags::PanelColour colour = look.tagColour;
    switch (static_cast<tags::PanelColumn>(index.column())) {
        case tags::PanelColumn::Id:
            colour = look.idColour;
            break;
        case tags::PanelColumn::Value:
            colour = look.valueColour;
            break;
        default:
            break;
    }
    if (isBelowZero(index, look)) {
        option->text = platform::wide(app::spokenText(text::kRejected, {QString::number(*look.stars)}));
        colour = look.valueColour;
    }
    option->text = oneLine(option->text.left(kLongestShown));
    const QPalette& palette = option->widget != nullptr ? option->widget->palette() : option->palette;
    const QColor ground = controls::ListColors(palette).groundOf(
        {.alternate = option->features.testFlag(QStyleOptionViewItem::Alternate),
         .selected = option->state.testFlag(QStyle::State_Selected),
         .hovered = option->state.testFlag(QStyle::State_MouseOver)});
    option->palette.setColor(QPalette::Text, colourOn(colour, palette, ground));
}

void MetadataDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const auto column = static_cast<tags::PanelColumn>(index.column());
    if (column == tags::PanelColumn::Item) return;
    const tags::MetadataRow& row = model_.row(index.row());
    const tags::RowAppearance look = appearanceOf(row);
    QStyleOptionViewItem cell = option;
    if (column == tags::PanelColumn::Tag && hasHelpMark(row)) {
        QRect mark(option.rect.topLeft() + kHelpMarkPlace, kHelpMark);
        if (!settings_.listViewMetadata.rightAligned) {
            mark.moveRight(option.rect.right() - kHelpMarkPlace.x());
            cell.rect.setRight(mark.left());
        }
        paintPicture(painter, mark, QStringLiteral("help-mark"));
    }
    if (column == tags::PanelColumn::Kind)
        paintKind(painter, option.rect, look);
    else if (column == tags::PanelColumn::Value && look.stars && !isBelowZero(index, look))
        paintStars(painter, option.rect, *look.stars);
    else
        GroupedListDelegate::paint(painter, cell, index);
}

}  // namespace panel
