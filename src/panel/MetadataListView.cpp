#include "panel/MetadataListView.h"

#include "controls/ColorArithmetic.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace panel {

using controls::colorFromStored;
using controls::isDark;
using controls::luminance;
using controls::mirroredOn;
using controls::mixedColor;
using controls::readableOn;

namespace {

constexpr int kTitleLeft = 25;
constexpr int kTitleTop = 2;
constexpr int kPictureSide = 16;
constexpr int kPictureLeft = 5;
constexpr int kChevronRoom = 28;
constexpr int kChevronSide = 16;
constexpr int kHovered = 103;  // percent, as QColor::darker takes it
constexpr float kCountShare = 0.78F;

/// A user's light header colours would shine out of a dark list; there they keep their hue alone.
QColor onGround(const QColor& colour, const QColor& ground) {
    if (!isDark(ground) || luminance(colour) < 0.25) return colour;
    return QColor::fromHslF(colour.hslHueF() < 0 ? 0 : colour.hslHueF(),
                            std::min(0.25F, colour.hslSaturationF()),
                            static_cast<float>(ground.lightnessF()) + 0.09F);
}

}  // namespace

MetadataListView::MetadataListView(const app::Settings& settings, QWidget* parent)
    : GroupedListView(parent), settings_(settings) {}

MetadataListView::HeaderColours MetadataListView::headerColours(const app::Settings::Colors& settings,
                                                                const QColor& ground) {
    const auto shown = [&](std::uint32_t stored) {
        return onGround(colorFromStored(settings.groupHeaderUseSolid ? settings.groupHeaderSolid : stored),
                        ground);
    };
    HeaderColours colours{shown(settings.groupHeaderHigh), shown(settings.groupHeaderLow), {}, {}};
    // The texts stand on both ends of the gradient, and on what a mouse over it makes of them.
    const QColor grounds[] = {colours.high, colours.low, colours.high.darker(kHovered),
                              colours.low.darker(kHovered)};
    colours.text = mirroredOn(colorFromStored(settings.groupHeaderText), colours.low);
    for (const QColor& behind : grounds) colours.text = readableOn(colours.text, behind);
    colours.count = mixedColor(colours.low, colours.text, kCountShare);
    for (const QColor& behind : grounds) colours.count = readableOn(colours.count, behind);
    return colours;
}

QRect MetadataListView::groupChevronRect(const QRect& headerRect) const {
    // The picture stands at the left edge, so the chevron stands at the right one.
    return {headerRect.right() - kChevronRoom + 1, headerRect.center().y() - kChevronSide / 2, kChevronSide,
            kChevronSide};
}

void MetadataListView::paintGroupHeader(QPainter& painter, const QRect& rect, const Group& group,
                                        bool collapsed, bool hovered) const {
    const app::Settings::Colors& colours = settings_.colors;
    const QColor ground = palette().color(QPalette::Base);
    const HeaderColours painted = headerColours(colours, ground);
    const QColor& high = painted.high;
    const QColor& low = painted.low;
    QLinearGradient gradient(rect.topLeft(),
                             colours.groupHeaderVerticalGradient ? rect.bottomLeft() : rect.topRight());
    gradient.setColorAt(0, hovered ? high.darker(kHovered) : high);
    gradient.setColorAt(1, hovered ? low.darker(kHovered) : low);
    painter.fillRect(rect, gradient);

    const QRect picture(rect.left() + kPictureLeft, rect.top() + (rect.height() - kPictureSide) / 2,
                        kPictureSide, kPictureSide);
    group.image.paint(&painter, picture);

    const QRect title = rect.adjusted(kTitleLeft, kTitleTop, -kChevronRoom, -kTitleTop);
    const qsizetype countAt = group.title.lastIndexOf(u" (");
    const QString name = countAt < 0 ? group.title : group.title.first(countAt);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(painted.text);
    painter.drawText(title, Qt::AlignVCenter | Qt::AlignLeft, name);
    if (countAt >= 0) {
        const int nameWidth = QFontMetrics(bold).horizontalAdvance(name);
        painter.setFont(font());
        painter.setPen(painted.count);
        painter.drawText(title.adjusted(nameWidth, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         group.title.sliced(countAt));
    }
    paintGroupChevron(painter, rect, collapsed, painted.text);
}

}  // namespace panel
