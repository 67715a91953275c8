#include "tags/OutputParser.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using tags::leadingInteger;
using tags::MetadataRow;
using tags::OutputParser;

namespace {

const tags::TagDictionary& dictionary() {
    static const tags::TagDictionary instance;
    return instance;
}

/// A parser with every family shown, and what it has inserted so far.
class OutputParserTest : public ::testing::Test {
 protected:
    OutputParserTest() {
        auto& show = settings.metadataList;
        show.showExif = show.showComposite = show.showGps = show.showIptc = true;
        show.showIcc = show.showMakerNotes = show.showXmp = true;
        parser.begin();
    }

    std::vector<MetadataRow>& parse(const std::vector<std::string>& lines) {
        for (const std::string& line : lines)
            parser.parseLine(line, [this](MetadataRow&& row) { rows.push_back(std::move(row)); });
        return rows;
    }

    app::Settings settings;
    tags::RatingMemory memory;
    tags::RatingLog log;
    OutputParser parser{dictionary(), settings, memory, log};
    std::vector<MetadataRow> rows;
};

std::uint32_t group(QStringView token) {
    return *tags::FindGroup(token);
}

}  // namespace

TEST_F(OutputParserTest, ALineBecomesARowOfItsGroup) {
    struct Case {
        const char* line;
        QStringView group;
        QStringView tag;
        QStringView id;
        QStringView value;
    };
    const Case cases[] = {
        {"[IFD0] 0x0112 Orientation: Horizontal (normal)", u"IFD0", u"Orientation", u"0112",
         u"Horizontal (normal)"},
        {"[ifd0] 0x010f Make: a  b ", u"IFD0", u"Make", u"010f", u"a  b "},
        {"[XMP-dc] - Title-zh-CN: a text of its own", u"XMP-dc", u"Title-zh-CN", u"-", u"a text of its own"},
        {"[Composite] - ImageSize: 640x480", u"Composite", u"ImageSize", u"-", u"640x480"},
        {"[IFD0] 0x0110 Model: cr kept\r", u"IFD0", u"Model", u"0110", u"cr kept\r"},
        {"[IFD0] 0x0110 Model: ", u"IFD0", u"Model", u"0110", u""},
        {"[IFD0] 0x0110 Model:", u"IFD0", u"Model", u"0110", u""},
        {"[IFD0] 0x0110 Model: (Binary data 12 bytes, use -b option to extract)", u"IFD0", u"Model", u"0110",
         u"(Binary data 12 bytes)"},
        {"[IFD0] 0x0110 Model: one, Use -b two", u"IFD0", u"Model", u"0110", u"one, Use -b two"},
        {"[IFD0] 0x0110 Model: bad \xFF byte", u"IFD0", u"Model", u"0110", u"bad \uFFFD byte"},
        {"[IFD0] 0x0123456789abc Model: m", u"IFD0", u"Model", u"012345678", u"m"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.line);
        rows.clear();
        ASSERT_EQ(parse({expected.line}).size(), 1U);
        EXPECT_EQ(rows[0].group, expected.group);
        EXPECT_EQ(rows[0].tag, expected.tag);
        EXPECT_EQ(rows[0].id, expected.id);
        EXPECT_EQ(rows[0].value, expected.value);
        EXPECT_FALSE(rows[0].stars);
    }
}

TEST_F(OutputParserTest, LinesWithoutARecordOrAPlaceAreDropped) {
    parse({"", "garbage", "[IFD0] 0x9999 NoSuchTagOfOurs: 1", "[NoSuchGroup] 0x0110 Model: m",
           "[IFD0] 0x0110 MOdel: first two letters differ", "[IFD3] 0x0110 Model: never shown",
           "[ExifTool] - Warning: something"});
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(parser.groupCount(group(u"[IFD0]")), 0);
}

TEST_F(OutputParserTest, WithShowUnknownNothingThatIsPrintedIsHidden) {
    settings.metadataList.showUnknown = true;
    parse({"[IFD0] 0x9999 NoSuchTagOfOurs: 1", "[NoSuchGroup] 0x0001 Some: a", "[nosuchgroup] - Other: b",
           "[IFD3] 0x0110 Model: shown", "[ExifTool] - Warning: odd", "no tag line", "", "[IFD0] 0x0001",
           "[NoSuchGroup] - Rating: text"});
    ASSERT_EQ(rows.size(), 6U);
    EXPECT_EQ(rows[0].groupId, group(u"[IFD0]"));
    EXPECT_EQ(rows[0].tagId, tags::kUnknownTag);
    EXPECT_EQ(rows[1].groupId, static_cast<std::uint32_t>(tags::kGroupCount));
    EXPECT_EQ(rows[2].groupId, rows[1].groupId);
    EXPECT_EQ(rows[2].itemIndex, 1);
    EXPECT_EQ(rows[3].groupId, group(u"[IFD3]"));
    EXPECT_EQ(rows[4].group, "ExifTool");
    EXPECT_EQ(rows[5].value, u"text");
    EXPECT_EQ(parser.extraGroups(), QStringList({"NoSuchGroup", "ExifTool"}));

    settings.metadataList.showExif = false;
    rows.clear();
    parse({"[IFD0] 0x9999 NoSuchTagOfOurs: 1"});
    EXPECT_TRUE(rows.empty()) << "a hidden family hides its unknown tags too";
}

TEST_F(OutputParserTest, EachShowSettingHidesItsFamilyAndNothingElse) {
    struct Case {
        bool app::Settings::MetadataList::*setting;
        const char* line;
    };
    using Show = app::Settings::MetadataList;
    const Case cases[] = {
        {&Show::showExif, "[IFD0] 0x0110 Model: m"},
        {&Show::showExif, "[ExifIFD] 0x829d FNumber: 4"},
        {&Show::showComposite, "[Composite] - ImageSize: 640x480"},
        {&Show::showGps, "[GPS] 0x0001 GPSLatitudeRef: North"},
        {&Show::showIptc, "[IPTC] 0x0005 ObjectName: title"},
        {&Show::showIcc, "[ICC-header] 0x0004 ProfileCMMType: x"},
        {&Show::showMakerNotes, "[Canon] 0x0006 CanonImageType: x"},
        {&Show::showXmp, "[XMP-dc] - Title: x"},
    };
    for (const Case& hidden : cases) {
        SCOPED_TRACE(hidden.line);
        settings.metadataList.*hidden.setting = false;
        for (const Case& line : cases) {
            rows.clear();
            parse({line.line});
            EXPECT_EQ(rows.size(), line.setting == hidden.setting ? 0U : 1U) << line.line;
        }
        settings.metadataList.*hidden.setting = true;
    }
}

TEST_F(OutputParserTest, CountsRunForEachGroupAndTwoStandStill) {
    parse({"[IFD0] 0x010f Make: a", "[XMP-dc] - Title: t", "[IFD0] 0x0110 Model: b"});
    EXPECT_EQ(rows[2].itemIndex, 1);
    std::map<std::uint32_t, int> shown;
    parser.forEachShownCount([&](std::uint32_t id, int count) { shown[id] = count; });
    const std::map<std::uint32_t, int> expected = {{group(u"[IFD0]"), 2}, {group(u"[XMP-dc]"), 1}};
    EXPECT_EQ(shown, expected);

    // Any record of the camera group will do: its counter is read and never moved.
    for (const tags::TagRecord& record : dictionary().records()) {
        if (record.groupIndex != group(u"[XMP-camera]") || record.name.empty()) continue;
        const QString name =
            QString::fromUtf16(record.name.data(), static_cast<qsizetype>(record.name.size()));
        const std::string line = "[XMP-camera] - " + name.toStdString() + ": 1";
        rows.clear();
        parse({line, line});
        ASSERT_EQ(rows.size(), 2U);
        EXPECT_EQ(rows[1].itemIndex, 0);
        EXPECT_EQ(parser.groupCount(record.groupIndex), 0);
        return;
    }
    FAIL() << "no record of XMP-camera";
}

TEST_F(OutputParserTest, TheCrossedGroupsExchangeTheirRows) {
    for (const tags::TagRecord& record : dictionary().records()) {
        if (record.groupIndex != group(u"[SR2DataIFD]")) continue;
        const QString name =
            QString::fromUtf16(record.name.data(), static_cast<qsizetype>(record.name.size()));
        parse({"[SR2DataIFD] 0x0001 " + name.toStdString() + ": 1"});
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(tags::groupName(rows[0].groupId), u"SR2DataIFD12");
        return;
    }
    FAIL() << "no record of SR2DataIFD";
}

TEST_F(OutputParserTest, RatingsShowAsStarsAndAreRemembered) {
    parse({"[IFD0] 0x4746 Rating: 3", "[XMP-xmp] - Rating: 4",
           "[XMP-xmp] - Rating: ", "[IFD0] 0x4746 Rating: 5"});
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0].stars, 3);
    EXPECT_TRUE(rows[0].value.isEmpty());
    EXPECT_EQ(rows[2].stars, 1) << "an empty value shows image 1";
    EXPECT_EQ(memory.Rating(1142), 5) << "the last one read stays";
    EXPECT_EQ(log.lastRating(1142), 5);
    EXPECT_EQ(log.entries().size(), 4U);
    EXPECT_EQ(memory.Rating(8849), 0);
    EXPECT_FALSE(memory.Rating(1));

    settings.metadataList.showXmp = false;
    parse({"[XMP-xmp] - Rating: 2"});
    EXPECT_EQ(memory.Rating(8849), 0) << "a hidden row is not remembered";
}

TEST(RatingMemory, ClearingKeepsOnlyTheSonySlot) {
    tags::RatingMemory memory;
    for (const int id : tags::kRatingTagIds) memory.Store(id, 4);
    memory.clear();
    for (const int id : tags::kRatingTagIds) EXPECT_EQ(memory.Rating(id), id == 6345 ? 4 : 0) << id;
}

TEST(RatingLog, AFullLogKeepsTheLastRatingOfEveryTag) {
    tags::RatingLog log;
    log.Append(8849, 2);
    for (int rating = 0; rating < 50; ++rating) log.Append(1142, rating);
    EXPECT_LE(log.entries().size(), tags::RatingLog::kCapacity);
    EXPECT_EQ(log.lastRating(8849), 2);
    EXPECT_EQ(log.lastRating(1142), 49);
    EXPECT_EQ(log.lastRating(7874), 0);
}

TEST(LeadingInteger, ReadsWhatStandsInFront) {
    const std::pair<QStringView, int> cases[] = {
        {u"3", 3},   {u" -2 stars", -2},          {u"+7", 7}, {u"", 0}, {u"good", 0},
        {u"4.8", 4}, {u"99999999999", 2147483647}};
    for (const auto& [text, number] : cases) EXPECT_EQ(leadingInteger(text), number);
}

TEST(OutputFiles, AreReadByLinesOfAnyLength) {
    const support::TemporaryFolder folder;
    const auto file = folder / "Metadata.txt";
    const std::string longValue(1 << 20, 'x');
    support::writeBytes(
        file, "[IFD0] 0x010f Make: " + longValue + "\n\n[IFD0] 0x0110 Model: last line without feed");
    const app::Settings settings;
    tags::RatingMemory memory;
    tags::RatingLog log;
    OutputParser parser(dictionary(), settings, memory, log);
    parser.begin();
    std::vector<MetadataRow> rows;
    const auto insert = [&](MetadataRow&& row) { rows.push_back(std::move(row)); };
    ASSERT_TRUE(parser.ParseExifToolOutput(file, insert));
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].value.size(), qsizetype(1 << 20));
    EXPECT_EQ(rows[1].value, u"last line without feed");
    EXPECT_FALSE(parser.ParseExifToolOutput(folder / "absent", insert));
}

TEST(FindTagValue, TakesTheFirstLineOfGroupAndTag) {
    const support::TemporaryFolder folder;
    const auto file = folder / "Metadata.txt";
    support::writeBytes(
        file,
        "[ExifTool] Title: no\n[XMP-dc] Titles: no\n[XMP-xmp] Title: no\n[XMP-dc] Title: a: b\n"
        "[XMP-dc] Title: second\n");
    EXPECT_EQ(tags::FindTagValue(file, u"XMP-dc", u"Title"), u"a: b");
    EXPECT_EQ(tags::FindTagValue(file, u"XMP-dc", u"Absent"), QString());
    EXPECT_EQ(tags::FindTagValue(folder / "absent", u"XMP-dc", u"Title"), QString());
}
