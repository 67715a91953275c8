// Draws the sample pictures of the install folder, and one sound, into a folder. The same run gives the same
// pictures: chance comes from a fixed seed. Their metadata are in metadata.args; make-samples does both.

#include <QColorSpace>
#include <QDataStream>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>
#include <QTextStream>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr QSize kSize(960, 640);
constexpr int kQuality = 77;

class Scene {
 public:
    explicit Scene(quint32 seed) : chance_(seed), image_(blank()), painter_(&image_) {
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.setPen(Qt::NoPen);
        image_.setColorSpace(QColorSpace::SRgb);
    }

    QPainter& painter() { return painter_; }
    double random(double from, double to) { return from + chance_.generateDouble() * (to - from); }
    static int width() { return kSize.width(); }
    static int height() { return kSize.height(); }

    void band(double top, double bottom, std::initializer_list<QColor> colors) {
        QLinearGradient gradient(0, top, 0, bottom);
        int index = 0;
        for (const QColor& color : colors)
            gradient.setColorAt(index++ / static_cast<double>(colors.size() - 1), color);
        painter_.fillRect(QRectF(0, top, width(), bottom - top), gradient);
    }

    void glow(QPointF center, double radius, QColor color, double strength) {
        QRadialGradient gradient(center, radius);
        color.setAlphaF(static_cast<float>(strength));
        gradient.setColorAt(0, color);
        color.setAlpha(0);
        gradient.setColorAt(1, color);
        painter_.setBrush(gradient);
        painter_.drawEllipse(center, radius, radius);
    }

    void disc(QPointF center, double radius, const QColor& color) {
        painter_.setBrush(color);
        painter_.drawEllipse(center, radius, radius);
    }

    // A skyline of summed waves down to the lower edge.
    QPainterPath ridge(double level, double roughness) {
        std::array<double, 6> phases{};
        for (double& phase : phases) phase = random(0, 2 * std::numbers::pi);
        QPainterPath path(QPointF(0, height()));
        for (int x = 0; x <= width(); x += 4) {
            double y = level;
            double amplitude = roughness;
            double frequency = 1.3;
            for (const double phase : phases) {
                const double wave = std::sin(frequency * x / width() * 2 * std::numbers::pi + phase);
                y -= amplitude * (1 - std::abs(wave));
                amplitude *= 0.5;
                frequency *= 2.1;
            }
            path.lineTo(x, y);
        }
        path.lineTo(width(), height());
        path.closeSubpath();
        return path;
    }

    void fill(const QPainterPath& path, const QColor& top, const QColor& bottom) {
        QLinearGradient gradient(path.boundingRect().topLeft(), path.boundingRect().bottomLeft());
        gradient.setColorAt(0, top);
        gradient.setColorAt(1, bottom);
        painter_.fillPath(path, gradient);
    }

    void firTree(double x, double foot, double tall, const QColor& color) {
        QPainterPath path(QPointF(x, foot - tall));
        for (int side : {1, -1}) {
            for (int step = 1; step <= 5; ++step) {
                const double share = (side > 0 ? step : 6 - step) / 5.0;
                const double y = foot - tall + tall * share;
                path.lineTo(x + side * tall * 0.23 * share, y);
                path.lineTo(x + side * tall * 0.12 * share, y - tall * 0.02);
            }
        }
        path.closeSubpath();
        painter_.fillPath(path, color);
    }

    void sail(QPointF foot, double tall, const QColor& color) {
        QPainterPath path(foot - QPointF(0, tall));
        path.quadTo(foot + QPointF(tall * 0.5, -tall * 0.45), foot + QPointF(tall * 0.42, 0));
        path.lineTo(foot);
        path.closeSubpath();
        painter_.fillPath(path, color);
        QPainterPath hull(foot + QPointF(-tall * 0.25, tall * 0.03));
        hull.lineTo(foot + QPointF(tall * 0.55, tall * 0.03));
        hull.lineTo(foot + QPointF(tall * 0.4, tall * 0.16));
        hull.lineTo(foot + QPointF(-tall * 0.12, tall * 0.16));
        hull.closeSubpath();
        painter_.fillPath(hull, color.darker(230));
    }

    // The lower part becomes the upper one upside down, as in still water.
    void mirror(double level, const QColor& tint) {
        const QImage above = image_.copy(0, 0, width(), static_cast<int>(level)).mirrored();
        painter_.drawImage(QPointF(0, level), above);
        QLinearGradient gradient(0, level, 0, height());
        QColor deep = tint;
        deep.setAlphaF(0.35F);
        gradient.setColorAt(0, deep);
        deep.setAlphaF(0.85F);
        gradient.setColorAt(1, deep);
        painter_.fillRect(QRectF(0, level, width(), height() - level), gradient);
    }

    QImage finished() {
        painter_.end();
        return image_;
    }

 private:
    static QImage blank() {
        QImage image(kSize, QImage::Format_RGB32);
        image.fill(Qt::black);
        return image;
    }

    QRandomGenerator chance_;
    QImage image_;
    QPainter painter_;
};

QImage harbourAtDawn() {
    Scene scene(11);
    scene.band(0, 400, {QColor(0x27, 0x3B, 0x6D), QColor(0xC7, 0x6B, 0x7E), QColor(0xFF, 0xC9, 0x8B)});
    scene.glow({600, 385}, 330, QColor(0xFF, 0xF0, 0xC0), 0.9);
    scene.disc({600, 378}, 46, QColor(0xFF, 0xF4, 0xD6));
    scene.fill(scene.ridge(405, 46), QColor(0x6A, 0x52, 0x78), QColor(0x4A, 0x3E, 0x68));
    scene.mirror(400, QColor(0x2A, 0x35, 0x5C));
    scene.sail({240, 452}, 150, QColor(0xFF, 0xF6, 0xEA));
    scene.sail({420, 428}, 80, QColor(0xF4, 0xDC, 0xCB));
    scene.sail({745, 488}, 210, QColor(0xFD, 0xEB, 0xD8));
    return scene.finished();
}

QImage mountainLake() {
    Scene scene(23);
    scene.band(0, 420, {QColor(0x3E, 0x86, 0xC8), QColor(0xA9, 0xD3, 0xEE), QColor(0xF3, 0xF6, 0xF4)});
    scene.fill(scene.ridge(330, 150), QColor(0xE9, 0xF1, 0xF6), QColor(0x5B, 0x7C, 0x99));
    scene.fill(scene.ridge(390, 92), QColor(0x6A, 0x93, 0x94), QColor(0x33, 0x63, 0x5C));
    for (int tree = 0; tree < 70; ++tree)
        scene.firTree(scene.random(0, Scene::width()), scene.random(398, 420), scene.random(34, 88),
                      QColor(0x1C, 0x4A, 0x40));
    scene.mirror(418, QColor(0x1B, 0x4D, 0x66));
    return scene.finished();
}

QImage desertDunes() {
    Scene scene(5);
    scene.band(0, 640, {QColor(0x2E, 0x6D, 0xA8), QColor(0xF7, 0xD9, 0xA4), QColor(0xF7, 0xD9, 0xA4)});
    scene.glow({190, 120}, 240, QColor(0xFF, 0xF7, 0xD0), 0.9);
    scene.disc({190, 120}, 40, QColor(0xFF, 0xFA, 0xE2));
    const std::array<QColor, 4> sand = {QColor(0xE9, 0xB8, 0x72), QColor(0xDA, 0x97, 0x4B),
                                        QColor(0xBE, 0x70, 0x2F), QColor(0x84, 0x43, 0x1B)};
    double level = 340;
    for (const QColor& color : sand) {
        QPainterPath dune(QPointF(0, Scene::height()));
        const double lean = scene.random(-90, 90);
        dune.lineTo(0, level + lean);
        dune.cubicTo({Scene::width() * 0.3, level - 120}, {Scene::width() * 0.55, level + 150},
                     {Scene::width() * 1.0, level - lean});
        dune.lineTo(Scene::width(), Scene::height());
        dune.closeSubpath();
        scene.fill(dune, color.lighter(112), color.darker(125));
        level += 82;
    }
    return scene.finished();
}

QImage northernLights() {
    Scene scene(41);
    scene.band(0, 640, {QColor(0x05, 0x0B, 0x1E), QColor(0x0B, 0x22, 0x3C), QColor(0x15, 0x40, 0x50)});
    for (int star = 0; star < 240; ++star) {
        scene.disc({scene.random(0, Scene::width()), scene.random(0, 430)}, scene.random(0.4, 1.5),
                   QColor(255, 255, 255, static_cast<int>(scene.random(90, 230))));
    }
    for (int veil = 0; veil < 150; ++veil) {
        const double x = veil * 6.9;
        const double y = 190 + 70 * std::sin(veil * 0.075) + 26 * std::sin(veil * 0.21);
        QLinearGradient gradient(x, y - 160, x, y + 110);
        gradient.setColorAt(0, QColor(140, 80, 220, 0));
        gradient.setColorAt(0.55, QColor(90, 220, 170, 60));
        gradient.setColorAt(0.85, QColor(120, 255, 160, 135));
        gradient.setColorAt(1, QColor(120, 255, 160, 0));
        scene.painter().fillRect(QRectF(x, y - 160, 14, 270), gradient);
    }
    scene.fill(scene.ridge(560, 62), QColor(0x0C, 0x22, 0x30), QColor(0x04, 0x0B, 0x12));
    for (int tree = 0; tree < 40; ++tree)
        scene.firTree(scene.random(0, Scene::width()), scene.random(600, 650), scene.random(60, 170),
                      QColor(0x03, 0x09, 0x10));
    return scene.finished();
}

QImage cityAtNight() {
    Scene scene(67);
    scene.band(0, 460, {QColor(0x0D, 0x12, 0x2E), QColor(0x3B, 0x2A, 0x5C), QColor(0xB5, 0x5A, 0x6C)});
    scene.disc({770, 110}, 34, QColor(0xFB, 0xF1, 0xD4));
    for (int row = 0; row < 3; ++row) {
        const QColor wall =
            std::array{QColor(0x3A, 0x33, 0x5E), QColor(0x27, 0x24, 0x48), QColor(0x15, 0x16, 0x2E)}.at(
                static_cast<std::size_t>(row));
        for (double x = -20; x < Scene::width();) {
            const double wide = scene.random(44, 96);
            const double top = scene.random(150 + row * 70, 330 + row * 40);
            scene.painter().fillRect(QRectF(x, top, wide - 4, 460 - top), wall);
            for (double wy = top + 10; wy < 448; wy += 15) {
                for (double wx = x + 7; wx < x + wide - 14; wx += 13) {
                    if (scene.random(0, 1) < 0.34)
                        scene.painter().fillRect(QRectF(wx, wy, 6, 8),
                                                 QColor(0xFF, 0xD8, 0x8A, 90 + 50 * row));
                }
            }
            x += wide;
        }
    }
    scene.mirror(460, QColor(0x0C, 0x10, 0x26));
    return scene.finished();
}

QImage poppyField() {
    Scene scene(88);
    scene.band(0, 300, {QColor(0x4F, 0x9F, 0xDF), QColor(0xDD, 0xEE, 0xF7)});
    scene.fill(scene.ridge(300, 34), QColor(0x8A, 0xB1, 0x8C), QColor(0x5F, 0x92, 0x58));
    scene.band(285, 640, {QColor(0x8F, 0xB4, 0x55), QColor(0x3F, 0x75, 0x2C)});
    for (int flower = 0; flower < 300; ++flower) {
        const double depth = flower / 300.0;
        const QPointF center(scene.random(0, Scene::width()),
                             296 + 340 * depth * depth + scene.random(-5, 5));
        const double size = 2 + 17 * depth * depth;
        const QColor red = QColor::fromHsv(static_cast<int>(scene.random(0, 14)), 225, 236);
        scene.disc(center + QPointF(-size * 0.4, 0), size * 0.7, red);
        scene.disc(center + QPointF(size * 0.4, 0), size * 0.7, red.darker(112));
        scene.disc(center + QPointF(0, -size * 0.35), size * 0.7, red.lighter(110));
        scene.disc(center, size * 0.24, QColor(0x2A, 0x10, 0x14));
    }
    return scene.finished();
}

QImage winterForest() {
    Scene scene(101);
    scene.band(0, 640, {QColor(0xA7, 0xC0, 0xD8), QColor(0xE4, 0xEC, 0xF2), QColor(0xF7, 0xF5, 0xF0)});
    for (int row = 0; row < 6; ++row) {
        const double foot = 360 + row * 56.0;
        const QColor color = QColor::fromHsv(205, 40 + row * 22, 210 - row * 26);
        for (int tree = 0; tree < 26 - row * 3; ++tree)
            scene.firTree(scene.random(-20, Scene::width() + 20), foot + scene.random(-8, 8),
                          scene.random(90, 150) + row * 26, color);
        scene.fill(scene.ridge(foot + 26, 18), QColor(255, 255, 255, 220), QColor(0xDF, 0xE9, 0xF1, 160));
    }
    for (int flake = 0; flake < 130; ++flake)
        scene.disc({scene.random(0, Scene::width()), scene.random(0, Scene::height())}, scene.random(1, 3),
                   QColor(255, 255, 255, 200));
    return scene.finished();
}

QImage balloons() {
    Scene scene(131);
    scene.band(0, 640, {QColor(0x5B, 0x9B, 0xD5), QColor(0xC9, 0xE1, 0xF2), QColor(0xFF, 0xE8, 0xCB)});
    scene.fill(scene.ridge(610, 70), QColor(0xA7, 0x95, 0xA8), QColor(0x7C, 0x6C, 0x86));
    struct Balloon {
        QPointF center;
        double radius;
        int hue;
    };
    for (const Balloon& balloon :
         {Balloon{{640, 120}, 46, 40}, {{850, 260}, 58, 200}, {{470, 300}, 74, 330}, {{210, 230}, 120, 8}}) {
        const auto [center, radius, hue] = balloon;
        for (int stripe = 0; stripe < 6; ++stripe) {
            const double half = radius * (1 - stripe / 6.0);
            scene.painter().setBrush(QColor::fromHsv(hue, stripe % 2 ? 90 : 205, 240 - stripe * 6));
            scene.painter().drawEllipse(center, half, radius);
        }
        QPainterPath skirt(center + QPointF(-radius * 0.62, radius * 0.78));
        skirt.lineTo(center + QPointF(radius * 0.62, radius * 0.78));
        skirt.lineTo(center + QPointF(radius * 0.16, radius * 1.34));
        skirt.lineTo(center + QPointF(-radius * 0.16, radius * 1.34));
        skirt.closeSubpath();
        scene.painter().fillPath(skirt, QColor::fromHsv(hue, 215, 215));
        scene.painter().fillRect(
            QRectF(center + QPointF(-radius * 0.15, radius * 1.48), QSizeF(radius * 0.3, radius * 0.22)),
            QColor(0x6B, 0x46, 0x2B));
    }
    return scene.finished();
}

QImage paperBoats() {
    Scene scene(151);
    scene.band(0, 640, {QColor(0x0F, 0x4C, 0x5C), QColor(0x1A, 0x7A, 0x84)});
    for (int row = 0; row < 7; ++row) {
        QPainterPath wave(QPointF(0, Scene::height()));
        for (int x = 0; x <= Scene::width(); x += 4)
            wave.lineTo(x, 130 + row * 76 + 14 * std::sin(x * 0.026 + row * 1.7));
        wave.lineTo(Scene::width(), Scene::height());
        wave.closeSubpath();
        const QColor color = QColor::fromHsv(184 - row * 3, 150, 110 + row * 17);
        scene.painter().fillPath(wave, color);
        const double x = 130 + (row * 271) % 720;
        const double y = 132 + row * 76 + 14 * std::sin(x * 0.026 + row * 1.7);
        const double size = 26 + row * 6;
        const QColor paper = QColor::fromHsv((row * 67) % 360, 90, 250);
        QPainterPath boat(QPointF(x - size * 1.3, y - size * 0.45));
        boat.lineTo(x + size * 1.3, y - size * 0.45);
        boat.lineTo(x + size * 0.8, y + size * 0.3);
        boat.lineTo(x - size * 0.8, y + size * 0.3);
        boat.closeSubpath();
        QPainterPath peak(QPointF(x, y - size * 1.5));
        peak.lineTo(x + size * 0.75, y - size * 0.45);
        peak.lineTo(x - size * 0.75, y - size * 0.45);
        peak.closeSubpath();
        scene.painter().fillPath(peak, paper.darker(118));
        scene.painter().fillPath(boat, paper);
    }
    return scene.finished();
}

// Three struck tones in 8-bit mono with a title in an INFO list.
QByteArray chime() {
    constexpr int kRate = 11025;
    constexpr int kSamples = kRate * 3;
    QByteArray samples(kSamples, Qt::Uninitialized);
    for (int at = 0; at < kSamples; ++at) {
        double value = 0;
        int start = 0;
        for (const double frequency : {523.25, 659.26, 783.99}) {
            const double time = (at - start) / static_cast<double>(kRate);
            if (time >= 0)
                value += std::sin(2 * std::numbers::pi * frequency * time) * std::exp(-2.4 * time) / 3;
            start += kRate / 2;
        }
        samples[at] = static_cast<char>(static_cast<unsigned char>(std::lround(128 + 120 * value)));
    }
    const auto chunk = [](const char* name, const QByteArray& content) {
        QByteArray bytes(name, 4);
        QDataStream stream(&bytes, QIODevice::Append);
        stream.setByteOrder(QDataStream::LittleEndian);
        stream << static_cast<quint32>(content.size());
        bytes += content;
        return content.size() % 2 ? bytes + '\0' : bytes;
    };
    QByteArray format;
    QDataStream stream(&format, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16{1} << quint16{1} << quint32{kRate} << quint32{kRate} << quint16{1} << quint16{8};
    const QByteArray info = QByteArray("INFO") + chunk("INAM", "Three tones\0") + chunk("IART", "Tagwright") +
                            chunk("ICMT", "A chime of C, E and G") + chunk("ICRD", "2024-05-18");
    return chunk("RIFF",
                 QByteArray("WAVE") + chunk("fmt ", format) + chunk("LIST", info) + chunk("data", samples));
}

bool write(const QString& folder, const QString& name, const QImage& image) {
    QImageWriter writer(folder + u'/' + name);
    writer.setQuality(name.endsWith(QStringLiteral(".png")) ? 0 : kQuality);
    writer.setOptimizedWrite(true);
    writer.setProgressiveScanWrite(true);
    return writer.write(image);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "Usage: tagwright-draw-samples FOLDER\n";
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    struct Sample {
        const char* name;
        QImage (*draw)();
    };
    constexpr Sample kSamples[] = {
        {"Harbour at dawn.jpg", harbourAtDawn}, {"Mountain lake.jpg", mountainLake},
        {"Desert dunes.jpg", desertDunes},      {"Northern lights.jpg", northernLights},
        {"City at night.jpg", cityAtNight},     {"Poppy field.jpg", poppyField},
        {"Winter forest.jpg", winterForest},    {"Balloons.jpg", balloons}};
    bool written = write(folder, QStringLiteral("Paper boats.png"),
                         paperBoats().scaled(480, 320, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    for (const Sample& sample : kSamples) {
        const QString name = QString::fromLatin1(sample.name);
        const QImage picture = sample.draw();
        const QImage thumbnail = picture.scaled(160, 107, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        written = write(folder, name, picture) &&
                  write(folder, name + QStringLiteral(".thumbnail.jpg"), thumbnail) && written;
    }
    QFile sound(folder + QStringLiteral("/Three tones.wav"));
    written = sound.open(QIODevice::WriteOnly) && sound.write(chime()) > 0 && written;
    return written ? 0 : 1;
}
