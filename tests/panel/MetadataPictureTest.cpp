#include "controls/Icons.h"
#include "controls/PictureMeasures.h"
#include "panel/MetadataDelegate.h"
#include "panel/MetadataListView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPainter>
#include <QSvgRenderer>

// What the panel paints, measured on its picture: whatever decides about a cell is right for nothing when
// the cell does not show it.

namespace {

using tags::MetadataRow;
using tags::PanelColumn;
using tags::ValueKind;

constexpr int kHeaderGroup = 78;  // IFD0
constexpr int kTagWidth = 260;

QRgb pixelOf(std::uint32_t stored) {
    return qRgb(static_cast<int>(stored & 0xFFU), static_cast<int>((stored >> 8U) & 0xFFU),
                static_cast<int>((stored >> 16U) & 0xFFU));
}

int distance(QRgb one, QRgb other) {
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

double contrastOf(QRgb one, QRgb other) {
    const double high = std::max(luminance(one), luminance(other));
    return (high + 0.05) / (std::min(luminance(one), luminance(other)) + 0.05);
}

/// The share of the pixels that are not the ground.
double paintedShare(const QImage& picture, QRgb ground) {
    int painted = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (distance(picture.pixel(x, y), ground) > 24) ++painted;
    return picture.isNull() ? 0 : static_cast<double>(painted) / (picture.width() * picture.height());
}

/// The least distance that any pixel has to a colour.
int nearest(const QImage& picture, QRgb colour) {
    int least = 255;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            least = std::min(least, distance(picture.pixel(x, y), colour));
    return least;
}

/// A drawing as it stands in its file, on a ground.
QImage drawingOf(const QString& name, QSize size, QRgb ground) {
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(ground);
    QSvgRenderer renderer(QStringLiteral(":/controls/icons/%1.svg").arg(name));
    EXPECT_TRUE(renderer.isValid()) << name.toStdString();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    return picture;
}

double meanDistance(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) return 255;
    double sum = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) sum += distance(one.pixel(x, y), other.pixel(x, y));
    return sum / (one.width() * one.height());
}

/// The panel's list with rows of our own, in light or dark colours.
class MetadataPicture : public testing::TestWithParam<bool> {
 protected:
    MetadataPicture() {
        controls::setDarkIcons(isDark());
        QPalette palette;
        palette.setColor(QPalette::Base, base());
        palette.setColor(QPalette::AlternateBase, base());
        palette.setColor(QPalette::Text, isDark() ? Qt::white : QColor(0x1A, 0x1C, 0x1E));
        palette.setColor(QPalette::Link, QColor(0x0B, 0x57, 0xA8));
        view.setPalette(palette);
        view.setModel(&model);
        view.setItemDelegate(&delegate);
        view.setGroupsEnabled(true);
        view.setGroups({{kHeaderGroup, QStringLiteral(" IFD0 (3)"),
                         controls::icon(QStringLiteral("group-exif")), true}});
        const int widths[] = {0, kTagWidth, 60, 22, 300};
        for (int section = 0; section < 5; ++section) view.header()->resizeSection(section, widths[section]);
        view.resize(720, 420);
        view.setFocusPolicy(Qt::NoFocus);
        settings.colors = {.system = 0x084B8A,
                           .unknownTag = 0x006A6E,
                           .tagHexa = 0xA03F7B,
                           .tagId = 0x78706A,
                           .canBeModifiedTag = 0xA8570B,
                           .groupHeaderText = 0x56351F,
                           .groupHeaderHigh = 0xF4EAE4,
                           .groupHeaderLow = 0xB09080,
                           .groupHeaderSolid = 0xC0D0E0};
        settings.colors.libelle = 0x4A3224;
    }
    ~MetadataPicture() override { controls::setDarkIcons(false); }

    bool isDark() const { return GetParam(); }
    QColor base() const { return isDark() ? QColor(0x20, 0x20, 0x20) : QColor(Qt::white); }

    MetadataRow rowOf(int tagId, const QString& value) const {
        MetadataRow row;
        row.itemIndex = static_cast<int>(next++);
        row.groupId = kHeaderGroup;
        row.tagId = tagId;
        row.group = QStringLiteral("IFD0");
        row.tag = QStringLiteral("Make");
        row.id = QStringLiteral("010f");
        row.value = value;
        return row;
    }
    int tagOfKind(ValueKind kind, bool writable) const {
        for (const tags::TagRecord& record : dictionary.records())
            if (record.valueKind == kind && record.writable == writable && record.groupIndex == kHeaderGroup)
                return static_cast<int>(record.id);
        for (const tags::TagRecord& record : dictionary.records())
            if (record.valueKind == kind && record.writable == writable) return static_cast<int>(record.id);
        ADD_FAILURE() << "no such tag";
        return tags::kUnknownTag;
    }
    void show(std::vector<MetadataRow> rows) {
        for (MetadataRow& row : rows) model.InsertMetadataRow(std::move(row));
        model.Commit();
        view.show();
        QImage image = view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        picture.swap(image);
    }
    QImage cell(int row, PanelColumn column) const {
        return picture.copy(view.visualRect(model.index(row, static_cast<int>(column))));
    }
    QRgb ground() const { return base().rgb(); }

    app::Settings settings;
    tags::TagDictionary dictionary;
    tags::LabelLibrary labels{9, dictionary};
    tags::RatingMemory memory;
    panel::MetadataListModel model{settings};
    panel::MetadataDelegate delegate{model, dictionary, memory, settings, &labels};
    panel::MetadataListView view{settings};
    QImage picture;
    mutable std::size_t next = 0;
};

INSTANTIATE_TEST_SUITE_P(Looks, MetadataPicture, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool>& info) {
                             return info.param ? "Dark" : "Light";
                         });

// --- kinds

TEST_P(MetadataPicture, EachKindHasItsDrawingInTheMiddleOfItsCell) {
    const struct {
        ValueKind kind;
        const char* drawing;
    } kinds[] = {{ValueKind::Date, "kind-date"},        {ValueKind::Integer, "kind-integer"},
                 {ValueKind::Text, "kind-text"},        {ValueKind::Rating, "kind-rating"},
                 {ValueKind::List, "kind-list"},        {ValueKind::Binary, "kind-binary"},
                 {ValueKind::Rational, "kind-rational"}};
    std::vector<MetadataRow> rows;
    for (const auto& each : kinds) rows.push_back(rowOf(tagOfKind(each.kind, true), "value"));
    rows.push_back(rowOf(tags::kUnknownTag, "value"));
    const auto count = static_cast<int>(rows.size());
    show(std::move(rows));
    for (int row = 0; row < count; ++row) {
        const QString name =
            row + 1 < count ? QLatin1String(kinds[row].drawing) : QLatin1String("unknown-tag");
        SCOPED_TRACE(name.toStdString());
        const QImage all = cell(row, PanelColumn::Kind);
        const QRect place(5, (all.height() - 12) / 2, 12, 12);
        const QImage drawn = all.copy(place);
        EXPECT_GT(paintedShare(drawn, ground()), 0.10);
        EXPECT_GE(contrast(QPixmap::fromImage(drawn), base()), 3.0);
        QImage around = all;
        QPainter(&around).fillRect(place.adjusted(-1, -1, 1, 1), base());
        EXPECT_EQ(paintedShare(around, ground()), 0) << "nothing beside the drawing";
        if (isDark()) continue;
        // The drawings of the others are farther from what is shown than its own.
        const double own = meanDistance(drawn, drawingOf(name, drawn.size(), ground()));
        for (const auto& other : kinds)
            if (name != QLatin1String(other.drawing)) {
                EXPECT_LT(own, meanDistance(drawn, drawingOf(other.drawing, drawn.size(), ground())))
                    << other.drawing;
            }
    }
}

TEST_P(MetadataPicture, ATagThatCannotBeChangedHasNoDrawingUnlessItIsBinary) {
    show({rowOf(tagOfKind(ValueKind::Text, false), "value"),
          rowOf(tagOfKind(ValueKind::Binary, false), "(Binary data 12 bytes)")});
    EXPECT_EQ(paintedShare(cell(0, PanelColumn::Kind), ground()), 0);
    EXPECT_GT(paintedShare(cell(1, PanelColumn::Kind), ground()), 0.03);
}

// --- stars

struct StarCase {
    int rating;
    int filled;
    int empty;
};

TEST_P(MetadataPicture, ARatingIsAsManyStars) {
    const StarCase cases[] = {{0, 0, 5}, {1, 1, 4}, {3, 3, 2}, {5, 5, 0}, {7, 7, 0}};
    std::vector<MetadataRow> rows;
    for (const StarCase& each : cases) {
        // A tag without a rating of its own to be remembered: the row alone says how many.
        rows.push_back(rowOf(tags::kUnknownTag, {}));
        rows.back().stars = each.rating;
    }
    show(std::move(rows));
    for (int row = 0; row < static_cast<int>(std::size(cases)); ++row) {
        const QImage all = cell(row, PanelColumn::Value);
        std::string seen;
        for (int left = 6; left + 15 <= all.width(); left += 15) {
            const QImage star = all.copy(left, (all.height() - 13) / 2, 15, 13);
            const double share = paintedShare(star, ground());
            // A filled star covers its middle, an empty one only its edge.
            const bool filled = distance(star.pixel(7, 7), ground()) > 60;
            seen += share == 0 ? '.' : filled ? '*' : 'o';
        }
        const StarCase& wanted = cases[row];
        std::string expected(static_cast<std::size_t>(wanted.filled), '*');
        expected.append(static_cast<std::size_t>(wanted.empty), 'o');
        expected.resize(seen.size(), '.');
        EXPECT_EQ(seen, expected) << wanted.rating;
    }
}

TEST_P(MetadataPicture, ARatingBeyondMeasureFillsItsCellAndNoMore) {
    MetadataRow row = rowOf(tags::kUnknownTag, {});
    row.stars = 2'000'000'000;
    show({row, rowOf(tagOfKind(ValueKind::Text, true), {})});
    const QImage all = cell(0, PanelColumn::Value);
    EXPECT_GT(paintedShare(all.copy(all.width() - 30, 0, 30, all.height()), ground()), 0.1);
    EXPECT_EQ(paintedShare(cell(0, PanelColumn::Kind).copy(18, 0, 4, all.height()), ground()), 0);
    EXPECT_EQ(paintedShare(cell(1, PanelColumn::Value), ground()), 0);
}

TEST_P(MetadataPicture, StarsStandInPlaceOfTheText) {
    MetadataRow row = rowOf(tags::kUnknownTag, QString(60, u'M'));
    row.stars = 1;
    show({row});
    const QImage all = cell(0, PanelColumn::Value);
    EXPECT_EQ(paintedShare(all.copy(6 + 5 * 15 + 2, 0, 200, all.height()), ground()), 0);
    // What is rejected is no photo without stars.
    const auto picture = [&](int rating) {
        model.clear();
        row.stars = rating;
        row.value.clear();
        show({row});
        return cell(0, PanelColumn::Value);
    };
    const QImage none = picture(0);
    const QImage rejected = picture(-1);
    EXPECT_GT(paintedShare(rejected, ground()), 0);
    EXPECT_NE(rejected, none);
    EXPECT_NE(picture(-2), rejected);
}

// --- help marks

struct MarkCase {
    const char* name;
    bool rightAligned, help, known;
    bool marksAtTheLeft;
    bool marked;
};

TEST_P(MetadataPicture, TheHelpMarkIsThereForTagsWithHelp) {
    const MarkCase cases[] = {{"all given", true, true, true, false, true},
                              {"names at the left", false, true, true, false, false},
                              {"names at the left, marked", false, true, true, true, true},
                              {"names at the left, help turned off", false, false, true, true, false},
                              {"help turned off", true, false, true, true, false},
                              {"a tag that nobody knows", true, true, false, true, false}};
    for (const MarkCase& each : cases) {
        SCOPED_TRACE(each.name);
        settings.listViewMetadata.rightAligned = each.rightAligned;
        settings.listViewMetadata.libelleHelp = each.help;
        delegate.setMarksNamesAtTheLeft(each.marksAtTheLeft);
        model.clear();
        show({rowOf(each.known ? tagOfKind(ValueKind::Text, true) : tags::kUnknownTag, "value")});
        const QImage all = cell(0, PanelColumn::Tag);
        const QImage mark = all.copy(each.rightAligned ? 2 : all.width() - 18, 3, 16, 16);
        const QImage atTheLeft = all.copy(22, 0, 40, all.height());
        const QImage atTheRight = all.copy(all.width() - 60, 0, 40, all.height());
        EXPECT_EQ(paintedShare(atTheLeft, ground()) > 0, !each.rightAligned);
        EXPECT_EQ(paintedShare(atTheRight, ground()) > 0, each.rightAligned);
        EXPECT_EQ(paintedShare(mark, ground()) > 0.1, each.marked);
        if (!each.marked) {
            EXPECT_EQ(paintedShare(mark, ground()), 0);
        }
        if (each.marked) {
            EXPECT_GE(contrast(QPixmap::fromImage(mark), base()), 3.0);
        }
    }
    // A long name ends before its mark.
    settings.listViewMetadata.rightAligned = false;
    settings.listViewMetadata.libelleHelp = true;
    delegate.setMarksNamesAtTheLeft(true);
    const auto marked = [&](const QString& name) {
        model.clear();
        MetadataRow row = rowOf(tagOfKind(ValueKind::Text, true), "value");
        row.tag = name;
        show({row});
        const QImage all = cell(0, PanelColumn::Tag);
        return all.copy(all.width() - 18, 0, 18, all.height());
    };
    EXPECT_EQ(marked(QString(60, u'M')), marked({}));
}

// --- colours of the texts

TEST_P(MetadataPicture, TextsHaveTheColoursOfTheSettings) {
    const auto system = static_cast<int>(tags::FindGroup(u"[System]").value());
    MetadataRow ofSystem = rowOf(-1, "MMMM");
    for (const tags::TagRecord& record : dictionary.records())
        if (record.groupIndex == static_cast<std::uint32_t>(system) && !record.writable) {
            ofSystem.tagId = static_cast<int>(record.id);
            break;
        }
    MetadataRow shownAsSystem = ofSystem;
    shownAsSystem.groupId = static_cast<std::uint32_t>(system);
    view.setGroups({{kHeaderGroup, QStringLiteral(" IFD0 (3)"), {}, true},
                    {system, QStringLiteral(" System (1)"), {}, true}});
    show({rowOf(tagOfKind(ValueKind::Text, true), "MMMM"), rowOf(tagOfKind(ValueKind::Binary, true), "MMMM"),
          rowOf(tags::kUnknownTag, "MMMM"), shownAsSystem});
    const app::Settings::Colors& colours = settings.colors;
    const struct {
        const char* what;
        int row;
        PanelColumn column;
        std::uint32_t stored;
    } texts[] = {{"name", 0, PanelColumn::Tag, colours.libelle},
                 {"id", 0, PanelColumn::Id, colours.tagId},
                 {"value that can be changed", 0, PanelColumn::Value, colours.canBeModifiedTag},
                 {"binary value", 1, PanelColumn::Value, colours.tagHexa},
                 {"value of an unknown tag", 2, PanelColumn::Value, colours.unknownTag},
                 {"value of the file system", 3, PanelColumn::Value, colours.system}};
    for (const auto& each : texts) {
        SCOPED_TRACE(each.what);
        const QImage shown = cell(each.row, each.column);
        EXPECT_GT(paintedShare(shown, ground()), 0.005);
        if (isDark()) {
            EXPECT_GE(contrast(QPixmap::fromImage(shown), base()), 4.5);
        } else {
            EXPECT_LT(nearest(shown, pixelOf(each.stored)), 40);
        }
    }
}

// --- group headers

class HeaderPicture : public MetadataPicture {
 protected:
    void showHeader() {
        model.clear();
        show({rowOf(tagOfKind(ValueKind::Text, true), "value")});
        rect = view.groupHeaderRect(kHeaderGroup);
        header = picture.copy(rect);
    }
    /// A pixel of the free ground: right of the title, left of the chevron.
    QRgb free(double downward, double across = 0.6) const {
        return header.pixel(static_cast<int>((header.width() - 1) * across),
                            static_cast<int>((header.height() - 1) * downward));
    }

    QRect rect;
    QImage header;
};

INSTANTIATE_TEST_SUITE_P(Looks, HeaderPicture, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool>& info) {
                             return info.param ? "Dark" : "Light";
                         });

TEST_P(HeaderPicture, RunsFromTheHighColourDownToTheLowOne) {
    showHeader();
    ASSERT_GE(header.height(), 16);
    EXPECT_EQ(free(0.5, 0.5), free(0.5, 0.9)) << "the same from left to right";
    if (isDark()) {
        // Both colours keep their hue alone there, and with it hardly a difference.
        EXPECT_LT(luminance(free(0)), 0.2);
        EXPECT_GT(luminance(free(1)), luminance(ground()));
    } else {
        for (double down = 0; down < 1; down += 0.25)
            EXPECT_GT(luminance(free(down)), luminance(free(down + 0.25))) << down;
        EXPECT_LT(distance(free(0), pixelOf(settings.colors.groupHeaderHigh)), 8);
        EXPECT_LT(distance(free(1), pixelOf(settings.colors.groupHeaderLow)), 8);
    }
}

TEST_P(HeaderPicture, RunsAcrossWhenTheSettingSaysSo) {
    settings.colors.groupHeaderVerticalGradient = false;
    showHeader();
    EXPECT_EQ(free(0), free(1));
    if (!isDark()) {
        EXPECT_GT(luminance(free(0.5, 0.5)), luminance(free(0.5, 0.9)));
    }
}

TEST_P(HeaderPicture, IsOfOneColourWhenTheSettingSaysSo) {
    settings.colors.groupHeaderUseSolid = true;
    showHeader();
    for (const double down : {0.0, 0.5, 1.0}) EXPECT_EQ(free(down), free(0.3, 0.9));
    if (!isDark()) {
        EXPECT_EQ(free(0.5), pixelOf(settings.colors.groupHeaderSolid));
    }
}

TEST_P(HeaderPicture, ShowsPictureTitleAndChevronReadably) {
    settings.colors.groupHeaderUseSolid = true;
    showHeader();
    const QRgb behind = free(0.5);
    const QRect icon(5, (header.height() - 16) / 2, 16, 16);
    EXPECT_GT(paintedShare(header.copy(icon), behind), 0.1);
    const QImage title = header.copy(25, 0, 90, header.height());
    EXPECT_GE(contrast(QPixmap::fromImage(title), QColor(behind)), 4.5);
    EXPECT_GT(paintedShare(header.copy(header.width() - 28, 0, 28, header.height()), behind), 0.01);
    EXPECT_EQ(paintedShare(header.copy(200, 0, header.width() - 200 - 28, header.height()), behind), 0);
}

TEST_P(HeaderPicture, TheCountStandsBackBehindTheName) {
    settings.colors.groupHeaderUseSolid = true;
    showHeader();
    const QRgb behind = free(0.5);
    QFont bold = view.font();
    bold.setBold(true);
    const int end = 25 + QFontMetrics(bold).horizontalAdvance(QStringLiteral(" IFD0"));
    const auto strongest = [&](const QImage& part) {
        double best = 1;
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x)
                best = std::max(best, contrastOf(part.pixel(x, y), behind));
        return best;
    };
    const double name = strongest(header.copy(25, 0, end - 25, header.height()));
    const double count = strongest(header.copy(end + 1, 0, 60, header.height()));
    EXPECT_GT(count, 1.5);
    EXPECT_LT(count, name);
}

}  // namespace
