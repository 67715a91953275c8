#include "inspect/PropertiesReport.h"

#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <sstream>

namespace {

using support::TemporaryFolder;

TEST(PropertiesReport, PrintsTheCatalogueAsTable) {
    std::ostringstream output;
    inspect::reportPropertyCatalogue(output);
    const QStringList lines = QString::fromStdString(output.str()).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 319);
    EXPECT_EQ(lines[1], "1\t0\t41CF5AE0-F75A-4806-BD87-59C7D9248EB9\t100\tName\tSystem\t2\t0\t1073");
    for (const QString& line : lines) EXPECT_EQ(line.count(u'\t'), 8);
}

TEST(PropertiesReport, PrintsALineForEachValueAndGoesOnAfterAnUnreadableFile) {
    const TemporaryFolder folder;
    const auto photo = folder / "a.jpg";
    support::writeJpeg(photo);
    support::ExifTool({"-q", "-overwrite_original", "-n", "-IFD0:Model=a \"quoted\"\tname",
                       "-ExifIFD:FNumber=2.8", "-XMP-dc:Subject=x",
                       "-ExifIFD:DateTimeOriginal=2001:09:09 01:46:40", "-ExifIFD:OffsetTimeOriginal=+00:00",
                       "-GPS:GPSLatitude=48.5", photo.string()});
    std::ostringstream output;
    std::ostringstream errors;
    EXPECT_FALSE(inspect::reportProperties({folder / "absent.jpg", photo}, output, errors));
    EXPECT_NE(errors.str().find("absent.jpg"), std::string::npos);
    QMap<QString, QJsonObject> byName;
    for (const QString& line : QString::fromStdString(output.str()).split(u'\n', Qt::SkipEmptyParts)) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        ASSERT_EQ(object.size(), 6) << line.toStdString();
        byName.insert(object["category"].toString() + u'.' + object["name"].toString(), object);
    }
    EXPECT_EQ(byName["Photo.CameraModel"]["raw"].toString(), "a \"quoted\"\tname");
    EXPECT_EQ(byName["Photo.CameraModel"]["columnType"].toInt(), 207);
    EXPECT_EQ(byName["Photo.FNumber"]["raw"].toString(), "14/5");
    EXPECT_EQ(byName["Photo.FNumber"]["text"].toString(), "f/2.8");
    EXPECT_EQ(byName["Summary.Keywords"]["raw"].toArray(), (QJsonArray{"x"}));
    EXPECT_EQ(byName["Photo.DateTaken"]["raw"].toString(), "2001-09-09T01:46:40.000");
    EXPECT_EQ(byName["GPS.Latitude"]["raw"].toArray(), (QJsonArray{48, 30, 0}));
    EXPECT_FALSE(byName.contains("Photo.Contrast"));
}

}  // namespace
