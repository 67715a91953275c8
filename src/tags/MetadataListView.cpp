#include "tags/MetadataListView.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tags {

namespace {

constexpr double kReadableContrast = 4.5;
constexpr int kTitleLeft = 25;
constexpr int kTitleTop = 2;
constexpr int kPictureSide = 16;
constexpr int kPictureLeft = 5;
constexpr int kChevronRoom = 28;
constexpr int kChevronSide = 16;

double channelLight(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// Relative luminance and contrast as WCAG 2.1 defines them.
double luminance(const QColor& colour) {
    return 0.2126 * channelLight(colour.redF()) + 0.7152 * channelLight(colour.greenF()) +
           0.0722 * channelLight(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

bool isDark(const QColor& ground) {
    return luminance(ground) < 0.18;
}

/// A user's light header colours would shine out of a dark list; there they keep their hue alone.
QColor onGround(const QColor& colour, const QColor& ground) {
    if (!isDark(ground) || luminance(colour) < 0.25) return colour;
    return QColor::fromHslF(colour.hslHueF() < 0 ? 0 : colour.hslHueF(),
                            std::min(0.25F, colour.hslSaturationF()),
                            static_cast<float>(ground.lightnessF()) + 0.09F);
}

}  // namespace

QColor colourFromBgr(std::uint32_t bgr) {
    return {static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
            static_cast<int>((bgr >> 16) & 0xFF)};
}

QColor readableOn(const QColor& colour, const QColor& ground) {
    if (!isDark(ground)) return colour;
    // What is dark on white is as light on black, and keeps its hue.
    float lightness = std::max(colour.lightnessF(), 1.0F - colour.lightnessF());
    const auto withLightness = [&] {
        return QColor::fromHslF(colour.hslHueF() < 0 ? 0 : colour.hslHueF(), colour.hslSaturationF(), lightness);
    };
    QColor best = withLightness();
    while (contrast(best, ground) < kReadableContrast && lightness < 1.0F) {
        lightness = std::min(1.0F, lightness + 0.04F);
        best = withLightness();
    }
    return best;
}

MetadataListView::MetadataListView(const app::Settings& settings, QWidget* parent)
    : GroupedListView(parent), settings_(settings) {}

QRect MetadataListView::groupChevronRect(const QRect& headerRect) const {
    // The picture stands at the left edge, so the chevron stands at the right one.
    return {headerRect.right() - kChevronRoom + 1, headerRect.center().y() - kChevronSide / 2, kChevronSide,
            kChevronSide};
}

void MetadataListView::paintGroupHeader(QPainter& painter, const QRect& rect, const Group& group,
                                        bool collapsed, bool hovered) const {
    const app::Settings::Colors& colours = settings_.colors;
    const QColor ground = palette().color(QPalette::Base);
    const bool solid = colours.groupHeaderUseSolid;
    const QColor high =
        onGround(colourFromBgr(solid ? colours.groupHeaderSolid : colours.groupHeaderHigh), ground);
    const QColor low =
        onGround(colourFromBgr(solid ? colours.groupHeaderSolid : colours.groupHeaderLow), ground);
    QLinearGradient gradient(rect.topLeft(),
                             colours.groupHeaderVerticalGradient ? rect.bottomLeft() : rect.topRight());
    gradient.setColorAt(0, hovered ? high.darker(103) : high);
    gradient.setColorAt(1, hovered ? low.darker(103) : low);
    painter.fillRect(rect, gradient);

    const QRect picture(rect.left() + kPictureLeft, rect.top() + (rect.height() - kPictureSide) / 2,
                        kPictureSide, kPictureSide);
    group.image.paint(&painter, picture);

    const QColor text = readableOn(colourFromBgr(colours.groupHeaderText), low);
    const QRect title = rect.adjusted(kTitleLeft, kTitleTop, -kChevronRoom, -kTitleTop);
    const qsizetype countAt = group.title.lastIndexOf(u" (");
    const QString name = countAt < 0 ? group.title : group.title.first(countAt);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(text);
    painter.drawText(title, Qt::AlignVCenter | Qt::AlignLeft, name);
    if (countAt >= 0) {
        const int nameWidth = QFontMetrics(bold).horizontalAdvance(name);
        painter.setFont(font());
        QColor faint = text;
        faint.setAlphaF(0.78F);
        painter.setPen(faint);
        painter.drawText(title.adjusted(nameWidth, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         group.title.sliced(countAt));
    }
    paintGroupChevron(painter, rect, collapsed, text);
}

}  // namespace tags
