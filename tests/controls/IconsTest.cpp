#include "controls/Icons.h"

#include <gtest/gtest.h>

#include "controls/PictureMeasures.h"

namespace {

class IconsTest : public testing::TestWithParam<bool> {
 protected:
    void SetUp() override { controls::setDarkIcons(GetParam()); }
    void TearDown() override { controls::setDarkIcons(false); }
    QColor ground() const { return GetParam() ? QColor(0x2b, 0x2d, 0x2f) : QColor(Qt::white); }
};

TEST_P(IconsTest, EveryDrawingOfOursShowsOnItsGround) {
    EXPECT_GE(controls::ownIconNames().size(), 20);
    for (const QString& name : controls::ownIconNames()) {
        const QPixmap picture = controls::iconPixmap(name, QSize(16, 16), 2);
        EXPECT_EQ(picture.size(), QSize(32, 32)) << name.toStdString();
        EXPECT_GT(coverage(picture), 0.10) << name.toStdString();
        EXPECT_GE(contrast(picture, ground()), 3.0) << name.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Looks, IconsTest, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool>& info) {
                             return info.param ? "Dark" : "Light";
                         });

TEST(IconTest, TheNamesThatTheListsPaintExist) {
    const QStringList own = controls::ownIconNames();
    for (const char* name :
         {"kind-date",     "kind-integer",    "kind-text",   "kind-rating", "kind-list",  "kind-binary",
          "kind-rational", "star-filled",     "star-empty",  "group-exif",  "group-iptc", "group-file",
          "group-maker",   "group-composite", "group-media", "group-other", "group-icc",  "group-gps",
          "help-mark",     "unknown-tag",     "tagwright"})
        EXPECT_TRUE(own.contains(QLatin1String(name))) << name;
}

TEST(IconTest, KeepsTheProportionsOfAStar) {
    const QPixmap star = controls::iconPixmap(QStringLiteral("star-filled"), QSize(15, 13), 1.5);
    EXPECT_EQ(star.devicePixelRatio(), 1.5);
    EXPECT_EQ(star.size(), QSize(23, 20));
    EXPECT_GT(coverage(star), 0.25);
    EXPECT_LT(coverage(controls::iconPixmap(QStringLiteral("star-empty"), QSize(15, 13), 1.5)),
              coverage(star));
}

TEST(IconTest, AnIconHandedOutFollowsTheLook) {
    controls::setDarkIcons(false);
    for (const char* name : {"edit-copy", "kind-text"}) {
        const QIcon icon = controls::icon(QLatin1String(name));
        const QImage light = icon.pixmap(QSize(16, 16), 1.0).toImage();
        controls::setDarkIcons(true);
        const QImage dark = icon.pixmap(QSize(16, 16), 1.0).toImage();
        controls::setDarkIcons(false);
        EXPECT_NE(light, dark) << name;
        EXPECT_EQ(light, icon.pixmap(QSize(16, 16), 1.0).toImage()) << name;
    }
}

TEST(IconTest, ALargeActionHasTheLinesOfTheSmallOne) {
    // Breeze draws this one for 32 too, with lines half as wide.
    const QIcon icon = controls::icon(QStringLiteral("view-refresh"));
    const double small = coverage(icon.pixmap(QSize(16, 16), 2.0));
    for (const double ratio : {1.0, 1.5, 2.0})
        EXPECT_NEAR(coverage(icon.pixmap(QSize(32, 32), ratio)), small, 0.06) << ratio;
}

TEST(IconTest, ADisabledIconIsPaler) {
    const QIcon icon = controls::icon(QStringLiteral("group-exif"));
    EXPECT_LT(contrast(icon.pixmap(QSize(16, 16), 1.0, QIcon::Disabled), Qt::white), 3.0);
}

TEST(IconTest, AnUnknownNameGivesNoIcon) {
    for (const char* name : {"", "no-such-picture-anywhere", "../controls_icons", "kind-"}) {
        EXPECT_FALSE(controls::hasIcon(QLatin1String(name))) << name;
        EXPECT_TRUE(controls::icon(QLatin1String(name)).isNull()) << name;
        EXPECT_TRUE(controls::iconPixmap(QLatin1String(name), QSize(16, 16), 1).isNull()) << name;
    }
}

TEST(IconTest, TheSmallMarkIsSimpler) {
    const QImage small = controls::iconPixmap(QStringLiteral("tagwright"), QSize(16, 16), 1).toImage();
    const QImage form = controls::iconPixmap(QStringLiteral("tagwright-small"), QSize(16, 16), 1).toImage();
    EXPECT_EQ(small, form);
    EXPECT_GT(coverage(controls::iconPixmap(QStringLiteral("tagwright"), QSize(256, 256), 1)), 0.4);
}

}  // namespace
