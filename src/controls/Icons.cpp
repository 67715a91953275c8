#include "controls/Icons.h"

#include "controls/ColorArithmetic.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <vector>

// The resource stands in a static library, where nothing else would pull it in.
static void initializeOwnIcons() {
    Q_INIT_RESOURCE(controls_icons);
}

namespace controls {
namespace {

constexpr qreal kDisabledOpacity = 0.4;
constexpr int kSmallDrawingLimit = 24;  ///< logical side up to which a drawing's "-small" form is taken

constexpr int kSmallPicture = 32;  ///< logical side up to which a picture is looked at as a mark
constexpr int kDrawn = 128;        ///< alpha of a pixel that counts
const QColor kLightestDarkGround(0x46, 0x46, 0x46);

struct Tone {
    const char* light;
    const char* dark;
};

/// The drawings use these tones only; on a dark ground each gives way to its partner.
constexpr std::array<Tone, 11> kTones = {{
    {"#5c6167", "#aab1b9"},
    {"#2a67c9", "#7fb0f5"},
    {"#7b3fa0", "#c99be8"},
    {"#8a4b08", "#e0a566"},
    {"#2e7d32", "#7fcb86"},
    {"#b3261e", "#f58f87"},
    {"#b87800", "#f0b93a"},
    {"#00798c", "#5fc6d6"},
    {"#6e6a00", "#d3cb62"},
    {"#82888f", "#8b929a"},
    {"#ffffff", "#1f2225"},
}};

bool& darkFlag() {
    static bool dark = false;
    return dark;
}

QString ownFile(const QString& name) {
    return QStringLiteral(":/controls/icons/%1.svg").arg(name);
}

bool isOwn(const QString& name) {
    initializeOwnIcons();
    return !name.isEmpty() && QFile::exists(ownFile(name));
}

void applyTheme(bool dark) {
    QStringList folders = QIcon::themeSearchPaths();
    for (const QString& data : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        const QString icons = QDir(data).filePath(QStringLiteral("icons"));
        if (!folders.contains(icons) && QDir(icons).exists()) folders.append(icons);
    }
    const QString usual = QStringLiteral("/usr/share/icons");
    if (!folders.contains(usual)) folders.append(usual);
    QIcon::setThemeSearchPaths(folders);
    QIcon::setThemeName(dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
    QIcon::setFallbackThemeName(QStringLiteral("breeze"));
}

void ensureTheme() {
    static bool chosen = false;
    if (chosen) return;
    chosen = true;
    applyTheme(darkFlag());
}

QByteArray ownDrawing(const QString& name) {
    QFile file(ownFile(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray drawing = file.readAll();
    if (darkFlag())
        for (const Tone& tone : kTones) drawing.replace(tone.light, tone.dark);
    return drawing;
}

QPixmap rendered(QSvgRenderer& renderer, QSize pixels) {
    QPixmap picture(pixels);
    picture.fill(Qt::transparent);
    if (!renderer.isValid()) return picture;
    const QSizeF scaled = QSizeF(renderer.defaultSize()).scaled(QSizeF(pixels), Qt::KeepAspectRatio);
    const QPointF corner((pixels.width() - scaled.width()) / 2, (pixels.height() - scaled.height()) / 2);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(std::floor(corner.x()), std::floor(corner.y())), scaled));
    return picture;
}

QPixmap drawOwn(const QString& name, QSize pixels, qreal ratio) {
    const QSizeF logical = QSizeF(pixels) / ratio;
    const QString small = name + QStringLiteral("-small");
    const bool useSmall = std::min(logical.width(), logical.height()) <= kSmallDrawingLimit && isOwn(small);
    QSvgRenderer renderer(ownDrawing(useSmall ? small : name));
    return rendered(renderer, pixels);
}

/// The theme's pictures of actions are lines; elsewhere it paints in colours. Empty when there is none.
QString lineDrawing(const QString& name) {
    for (const QString& folder : QIcon::themeSearchPaths()) {
        QString file = QStringLiteral("%1/%2/actions/16/%3.svg").arg(folder, QIcon::themeName(), name);
        if (QFile::exists(file)) return file;
    }
    return {};
}

/// The contrast that a quarter of the drawn pixels have at least.
double strengthOf(const QImage& picture, const QColor& ground) {
    std::vector<double> contrasts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (qAlpha(picture.pixel(x, y)) > kDrawn)
                contrasts.push_back(contrastRatio(QColor(picture.pixel(x, y)), ground));
    if (contrasts.empty()) return kMarkContrast;
    const auto quarter = contrasts.begin() + static_cast<std::ptrdiff_t>(contrasts.size() / 4);
    std::ranges::nth_element(contrasts, quarter, std::greater<>());
    return *quarter;
}

/// The theme's pictures of files are as light as their sheets; they are made darker, or lighter on a dark
/// ground, until they can be told from it.
QPixmap withContrast(const QPixmap& picture) {
    const QColor ground = darkFlag() ? kLightestDarkGround : QColor(Qt::white);
    const QColor end = darkFlag() ? Qt::white : Qt::black;
    const QImage original = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    QImage shown = original;
    for (int step = 1; step <= 8 && strengthOf(shown, ground) < kMarkContrast; ++step) {
        const float share = static_cast<float>(step) / 10;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x) {
                const QRgb pixel = original.pixel(x, y);
                const QRgb mixed = mixedColor(QColor(pixel), end, share).rgb();
                shown.setPixel(x, y, qRgba(qRed(mixed), qGreen(mixed), qBlue(mixed), qAlpha(pixel)));
            }
    }
    return QPixmap::fromImage(shown);
}

/// Most actions are drawn for 16 and 22 only. At 32 the 16 drawn twice as large falls on whole pixels, where
/// 22 would be blurred; it is taken for all of them and at every ratio, since the few drawn for 32 have
/// thinner lines than their neighbours.
QPixmap drawFromTheme(const QString& name, QSize pixels, qreal ratio) {
    const int side = static_cast<int>(std::lround(std::min(pixels.width(), pixels.height()) / ratio));
    const QString lines = side == 16 || side == 32 ? lineDrawing(name) : QString();
    if (!lines.isEmpty()) {
        QSvgRenderer renderer(lines);
        if (renderer.isValid()) return rendered(renderer, pixels);
    }
    QPixmap found = QIcon::fromTheme(name).pixmap(QSize(side, side), ratio);
    found.setDevicePixelRatio(1);
    if (!found.isNull() && side <= kSmallPicture) found = withContrast(found);
    if (found.isNull() || found.size() == pixels) return found;
    QPixmap picture(pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.drawPixmap((pixels.width() - found.width()) / 2, (pixels.height() - found.height()) / 2, found);
    return picture;
}

QPixmap faded(const QPixmap& picture) {
    QPixmap result(picture.size());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(kDisabledOpacity);
    painter.drawPixmap(0, 0, picture);
    return result;
}

/// `pixels` in device pixels; the result carries the ratio.
QPixmap namedPixmap(const QString& name, QSize pixels, qreal ratio, QIcon::Mode mode) {
    if (pixels.isEmpty() || ratio <= 0) return {};
    const QString key = QStringLiteral("controls/icon/%1/%2x%3@%4/%5%6")
                            .arg(name)
                            .arg(pixels.width())
                            .arg(pixels.height())
                            .arg(ratio)
                            .arg(darkFlag() ? QLatin1Char('d') : QLatin1Char('l'))
                            .arg(mode == QIcon::Disabled ? QLatin1Char('-') : QLatin1Char('+'));
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    if (!hasIcon(name)) return picture;
    if (mode == QIcon::Disabled) {
        // From the one that is shown already: a whole ribbon is greyed at once when an operation begins.
        picture = namedPixmap(name, pixels, ratio, QIcon::Normal);
        picture.setDevicePixelRatio(1);
        if (!picture.isNull()) picture = faded(picture);
    } else {
        picture = isOwn(name) ? drawOwn(name, pixels, ratio) : drawFromTheme(name, pixels, ratio);
    }
    if (picture.isNull()) return picture;
    picture.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, picture);
    return picture;
}

/// Draws by name at the time of painting, so that an icon held by a widget follows the look.
class NamedIconEngine : public QIconEngine {
 public:
    explicit NamedIconEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal ratio = painter->device()->devicePixelRatio();
        const QPixmap picture = namedPixmap(name_, (QSizeF(rect.size()) * ratio).toSize(), ratio, mode);
        painter->drawPixmap(rect.topLeft(), picture);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        return namedPixmap(name_, size, 1, mode);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale) override {
        return namedPixmap(name_, size, scale, mode);
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    QString iconName() override { return name_; }
    bool isNull() override { return false; }
    QString key() const override { return QStringLiteral("tagwright-named"); }
    QIconEngine* clone() const override { return new NamedIconEngine(name_); }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        QList<QSize> sizes;
        for (const int side : {16, 24, 32, 48, 64, 128, 256}) sizes.append(QSize(side, side));
        return sizes;
    }

 private:
    QString name_;
};

}  // namespace

void setDarkIcons(bool dark) {
    ensureTheme();
    if (darkFlag() == dark) return;
    darkFlag() = dark;
    applyTheme(dark);
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) widget->update();
}

bool darkIcons() {
    return darkFlag();
}

bool hasIcon(const QString& name) {
    if (name.isEmpty()) return false;
    ensureTheme();
    return isOwn(name) || QIcon::hasThemeIcon(name);
}

QIcon icon(const QString& name) {
    return hasIcon(name) ? QIcon(new NamedIconEngine(name)) : QIcon();
}

QPixmap iconPixmap(const QString& name, QSize size, qreal devicePixelRatio, QIcon::Mode mode) {
    ensureTheme();
    return namedPixmap(name, (QSizeF(size) * devicePixelRatio).toSize(), devicePixelRatio, mode);
}

QStringList ownIconNames() {
    initializeOwnIcons();
    QStringList names;
    const QStringList files = QDir(QStringLiteral(":/controls/icons")).entryList(QDir::Files, QDir::Name);
    for (const QString& file : files) names.append(file.chopped(4));
    return names;
}

}  // namespace controls
