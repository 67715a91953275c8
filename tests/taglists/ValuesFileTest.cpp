#include "taglists/ValuesFile.h"

#include <gtest/gtest.h>

using namespace taglists;

namespace {

constexpr app::CommandForm kBoth[] = {app::CommandForm::Designed, app::CommandForm::Corrected};

std::string text(const std::vector<NamedValue>& values) {
    QStringList all;
    for (const NamedValue& value : values) {
        const QString group = value.group.isEmpty() ? QString() : value.group + u':';
        all << group + value.name + u'=' + value.value;
    }
    return all.join(u'|').toStdString();
}

TagRow row(const char* group, const char* name) {
    TagRow row;
    row.group = QString::fromUtf8(group);
    row.name = QString::fromUtf8(name);
    return row;
}

std::string repeated(int count, const std::string& cell) {
    std::string line = "SourceFile";
    for (int at = 0; at < count; ++at) line += ',' + cell;
    return line;
}

constexpr int kStructure = 77;
const TagTraits kTraits{.takesSeveral = [](int) { return false; },
                        .describesStructure = [](int tagId) { return tagId == kStructure; }};

}  // namespace

TEST(ValuesFile, WhatBothFormsRead) {
    struct {
        const char* bytes;
        const char* values;
    } const cases[] = {
        {"SourceFile,Make,Model\r\na.jpg,Acme,One\r\n", "Make=Acme|Model=One"},
        {"SourceFile,Make,Model\r\na.jpg,\"Acme, Inc.\",One", "Make=Acme, Inc.|Model=One"},
        {"SourceFile,Make,Model\r\na.jpg,Acme", "Make=Acme"},
        {"SourceFile,Make\r\na.jpg,Acme,extra\r\n", "Make=Acme"},
        {"SourceFile,Make\r\na.jpg,Acme\r\nb.jpg,Other\r\n", "Make=Acme"},
        {"SourceFile,Make\r\na.jpg,\r\n", "Make="},
        {"SourceFile,Make\r\n\"a,b.jpg\",\xE6\x97\xA5\xE6\x9C\xAC\r\n", "Make=\xE6\x97\xA5\xE6\x9C\xAC"},
        {"", ""},
        {"SourceFile,Make", ""},
        {"SourceFile,Make\r\n", ""},
        {"\r", ""},
    };
    for (const auto& row : cases)
        for (const app::CommandForm form : kBoth)
            EXPECT_EQ(text(parseValuesFile(row.bytes, form)), row.values) << row.bytes;
}

TEST(ValuesFile, WhereTheFormsDiffer) {
    struct {
        const char* bytes;
        const char* designed;
        const char* corrected;
    } const cases[] = {
        {"SourceFile,Make\na.jpg,Acme\n", "", "Make=Acme"},
        {"SourceFile,Make\r\na.jpg,\"a \"\"b\"\" c\"\r\n", "Make=a ", "Make=a \"b\" c"},
        {"SourceFile,Make,Model\r\na.jpg,\"line\none\",x\r\n", "Make=line", "Make=line\none|Model=x"},
        {"Make,Model\r\nAcme,One\r\n", "Model=One", "Make=Acme|Model=One"},
        {"SourceFile,IFD1:Make\r\na.jpg,Acme\r\n", "IFD1:Make=Acme", "IFD1:Make=Acme"},
        {"\xEF\xBB\xBFSourceFile,Make\r\na.jpg,Acme\r\n", "Make=Acme", "Make=Acme"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(text(parseValuesFile(row.bytes, app::CommandForm::Designed)), row.designed) << row.bytes;
        EXPECT_EQ(text(parseValuesFile(row.bytes, app::CommandForm::Corrected)), row.corrected) << row.bytes;
    }
}

TEST(ValuesFile, LimitsOfTheDesignedForm) {
    const std::string many = repeated(300, "N") + "\r\n" + repeated(300, "v");
    EXPECT_EQ(parseValuesFile(many, app::CommandForm::Designed).size(), 255U);
    EXPECT_EQ(parseValuesFile(many, app::CommandForm::Corrected).size(), 300U);

    const std::string name(300, 'n');
    const auto longName = parseValuesFile("SourceFile," + name + "\r\na,b", app::CommandForm::Designed);
    ASSERT_EQ(longName.size(), 1U);
    EXPECT_EQ(longName[0].name.size(), 255);

    std::string longLine = "SourceFile,Make,Model\r\na,";
    longLine.append(6000, 'v').append(",x");
    const auto designed = parseValuesFile(longLine, app::CommandForm::Designed);
    ASSERT_EQ(designed.size(), 1U);
    EXPECT_EQ(designed[0].value.size(), 5096 - 2);
    EXPECT_EQ(parseValuesFile(longLine, app::CommandForm::Corrected)[0].value.size(), 6000);
}

TEST(ValuesFile, NoBytesAreTooOdd) {
    std::string bytes = "SourceFile,\"Make\r\n,,\"\",\"\n\r";
    for (int round = 0; round < 400; ++round) {
        for (const app::CommandForm form : kBoth)
            EXPECT_LE(parseValuesFile(bytes, form).size(), bytes.size());
        bytes[static_cast<std::size_t>(round * 7) % bytes.size()] = ",\"\r\n\0x"[round % 6];
        if (round % 9 == 0) bytes += static_cast<char>(round);
    }
}

TEST(ValuesFile, ValuesGoToTheFirstRowOfTheirName) {
    for (const app::CommandForm form : kBoth) {
        TagRows rows{row("IFD1", "Make"), row("IFD0", "Make"), row("IFD0", "Model")};
        rows[2].value = rows[2].fileValue = "kept";
        const NamedValue values[] = {{"", "MAKE", "Acme"}, {"", "Unknown", "x"}, {"", "Model", ""}};
        const LoadedValues loaded = applyValues(rows, values, form, kTraits);
        const bool corrected = form == app::CommandForm::Corrected;
        // A name alone means the picture, and not its thumbnail.
        EXPECT_EQ(rows[corrected ? 1 : 0].value, "Acme");
        EXPECT_TRUE(rows[corrected ? 1 : 0].changed && rows[corrected ? 1 : 0].loaded);
        EXPECT_FALSE(rows[corrected ? 0 : 1].changed);
        EXPECT_EQ(rows[2].value, corrected ? "kept" : "");
        EXPECT_EQ(loaded.set, corrected ? 1U : 2U);
        EXPECT_EQ(loaded.unknown, 1U);
    }
}

TEST(ValuesFile, AGroupBeforeTheNameCounts) {
    TagRows rows{row("IFD1", "Make"), row("IFD0", "Make")};
    const NamedValue values[] = {{"ifd0", "Make", "Acme"}, {"IFD2", "Make", "x"}};
    const LoadedValues loaded = applyValues(rows, values, app::CommandForm::Corrected, kTraits);
    EXPECT_FALSE(rows[0].changed);
    EXPECT_EQ(rows[1].value, "Acme");
    EXPECT_EQ(loaded.unknown, 1U);
}

TEST(ValuesFile, AListIsTakenApart) {
    TagRows rows{row("XMP-dc", "Subject"), row("XMP-dc", "Creator")};
    rows[1].value = rows[1].fileValue = "a\nb";
    rows[1].severalEntries = rows[1].fileSeveral = true;
    const NamedValue values[] = {{"", "Subject", "one, two"}, {"", "Creator", "a, b"}};
    applyValues(rows, values, app::CommandForm::Corrected,
                {.takesSeveral = [](int) { return true; }, .describesStructure = [](int) { return false; }});
    EXPECT_EQ(rows[0].value, "one\ntwo");
    EXPECT_TRUE(rows[0].severalEntries);
    EXPECT_FALSE(rows[1].changed);
}

TEST(ValuesFile, WhatSaysHowAFileIsBuiltIsLeftOut) {
    TagRows rows{row("IFD0", "Make"), row("IFD0", "Compression"), row("IFD0", "Orientation")};
    rows[1].tagId = kStructure;
    rows[2].tagId = kStructure;
    rows[2].value = rows[2].fileValue = "6";
    rows[0].timesInFile = 2;
    const NamedValue values[] = {{"", "Make", "Acme"}, {"", "Compression", "LZW"}, {"", "Orientation", "6"}};
    const LoadedValues loaded = applyValues(rows, values, app::CommandForm::Corrected, kTraits);
    EXPECT_EQ(loaded.leftOut, QStringList({"IFD0:Make", "IFD0:Compression"}));
    EXPECT_EQ(loaded.set, 1U);
    EXPECT_EQ(changedCount(rows), 0U);
    EXPECT_TRUE(applyValues(rows, values, app::CommandForm::Designed, kTraits).leftOut.isEmpty());
    EXPECT_EQ(changedCount(rows), 2U);
}
