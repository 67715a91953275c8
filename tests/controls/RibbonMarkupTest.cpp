#include "controls/RibbonMarkup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/RibbonFixture.h"

using controls::keepAvailable;
using controls::nameCommands;
using controls::readRibbonMarkup;
using controls::RibbonItem;
using controls::RibbonMarkup;
using testing::HasSubstr;

namespace {

QByteArray inGroup(const QByteArray& items) {
    return "<ribbon><tab id='t' text='1'><group id='g' text='2'>" + items + "</group></tab></ribbon>";
}

struct Fault {
    const char* name;
    QByteArray xml;
    const char* message;
};

class FaultyMarkup : public testing::TestWithParam<Fault> {};

TEST_P(FaultyMarkup, IsRefusedWithAClearText) {
    const controls::RibbonMarkupResult result = readRibbonMarkup(GetParam().xml);
    EXPECT_FALSE(result.markup.has_value());
    EXPECT_THAT(result.error.toStdString(), HasSubstr(GetParam().message));
}

const Fault kFaults[] = {
    {"NothingAtAll", "", "Line "},
    {"NoXml", "ribbon", "Line 1: "},
    {"CutInTheMiddle", "<ribbon>\n<tab id='t' text='1'>\n", "Line 3: "},
    {"AnotherRoot", "<menu/>", "Line 1: The outermost element is <menu>, not <ribbon>."},
    {"NoTab", "<ribbon></ribbon>", "The ribbon has no tab."},
    {"UnknownElementInRibbon", "<ribbon>\n<group/></ribbon>", "Line 2: <group> is unknown inside <ribbon>."},
    {"UnknownElementInTab", "<ribbon><tab id='t' text='1'>\n\n<button/></tab></ribbon>",
     "Line 3: <button> is unknown inside <tab>."},
    {"UnknownElementInGroup", inGroup("\n<slider/>"), "Line 2: <slider> is unknown inside <group>."},
    {"SeparatorOutsideMenu", inGroup("<separator/>"), "<separator> is unknown inside <group>."},
    {"SplitInMenu", inGroup("<menu id='m' text='3' icon='tag'><split command='4'/></menu>"),
     "<split> is unknown inside <menu>."},
    {"ChildOfButton", inGroup("<button command='4' icon='tag'><button/></button>"),
     "<button> is unknown inside <button>."},
    {"UnknownAttribute", inGroup("<button command='4' icon='tag' colour='red'/>"),
     "<button> has no attribute \"colour\"."},
    {"SizeInMenu", inGroup("<menu id='m' text='3' icon='tag'><button command='4' size='large'/></menu>"),
     "<button> has no attribute \"size\"."},
    {"NoCommand", inGroup("<button icon='tag'/>"), "<button> lacks the attribute \"command\"."},
    {"CommandIsNoNumber", inGroup("<button command='12a' icon='tag'/>"),
     "Attribute \"command\" of <button> is no valid number: \"12a\"."},
    {"CommandIsZero", inGroup("<button command='0' icon='tag'/>"), "is no valid number: \"0\"."},
    {"CommandTooLarge", inGroup("<button command='99999999999' icon='tag'/>"), "is no valid number"},
    {"NoIcon", inGroup("<menu id='m' text='3'><button command='12'/></menu>"),
     "<menu> lacks the attribute \"icon\"."},
    {"LongKeyTip", inGroup("<button command='12' keyTip='AB'/>"),
     "A key tip is one letter or digit, not \"AB\"."},
    {"UnknownSize", inGroup("<button command='12' icon='tag' size='huge'/>"),
     "The size is \"large\" or \"small\", not \"huge\"."},
    {"CommandTwice", inGroup("<button command='12' icon='tag'/>\n<button command='12' icon='tag'/>"),
     "Line 2: The command 12 stands twice."},
    {"CommandTwiceInMenu", inGroup("<split command='12' icon='tag'>\n<button command='12'/></split>"),
     "Line 2: The command 12 stands twice."},
    {"IdTwice", inGroup("</group>\n<group id='g' text='3'>"), "Line 2: The id \"g\" stands twice."},
    {"NoId", "<ribbon><tab text='1'/></ribbon>", "<tab> lacks the attribute \"id\"."},
    {"NoText", "<ribbon><tab id='t'/></ribbon>", "<tab> lacks the attribute \"text\"."},
    {"EmptyMenu", inGroup("<menu id='m' text='3' icon='tag'></menu>"), "A <menu> has no entries."},
    {"TextBehindTheEnd", inGroup("") + "<ribbon/>", "Line 1: "},
    {"MenusWithoutEnd",
     inGroup(
         "<menu id='1' text='3' icon='tag'><menu id='2' text='3'><menu id='3' text='3'><menu id='4' text='3'>"
         "<menu id='5' text='3'><button command='9'/></menu></menu></menu></menu></menu>"),
     "nested too deeply"},
};

INSTANTIATE_TEST_SUITE_P(Ribbon, FaultyMarkup, testing::ValuesIn(kFaults),
                         [](const testing::TestParamInfo<Fault>& info) {
                             return std::string(info.param.name);
                         });

RibbonMarkup read(const QByteArray& xml) {
    controls::RibbonMarkupResult result = readRibbonMarkup(xml);
    EXPECT_TRUE(result.markup) << result.error.toStdString();
    return result.markup.value_or(RibbonMarkup{});
}

TEST(RibbonMarkupTest, ReadsEveryAttribute) {
    const RibbonMarkup markup = read(
        "<ribbon foldText='5'><tab id='t' text='1'><group id='g' text='2' icon='tag' priority='3' keyTip='g'>"
        "<button command='10' text='11' icon='a' size='large' keyTip='x'/><split command='12' icon='b'>"
        "<button command='13'/><separator/><menu id='m' text='14'><button command='15' "
        "icon='c'/></menu></split>"
        "</group></tab></ribbon>");
    using Kind = RibbonItem::Kind;
    const RibbonItem large{
        .command = 10, .text = 11, .icon = QStringLiteral("a"), .large = true, .keyTip = QStringLiteral("X")};
    const RibbonItem inner{.command = 15, .icon = QStringLiteral("c")};
    const RibbonItem menu{.kind = Kind::Menu, .id = QStringLiteral("m"), .text = 14, .entries = {inner}};
    const RibbonItem entry{.command = 13};
    const RibbonItem line{.kind = Kind::Separator};
    const RibbonItem split{
        .kind = Kind::Split, .command = 12, .icon = QStringLiteral("b"), .entries = {entry, line, menu}};
    EXPECT_EQ(markup.foldText, 5);
    ASSERT_EQ(markup.tabs.size(), 1U);
    ASSERT_EQ(markup.tabs[0].groups.size(), 1U);
    const controls::RibbonGroupMarkup expected{
        QStringLiteral("g"), 2, QStringLiteral("tag"), 3, QStringLiteral("G"), {large, split}};
    EXPECT_EQ(markup.tabs[0].groups[0], expected);
}

TEST(RibbonMarkupTest, LeavesOutGroupsAndTabsWithoutCommands) {
    NumberedSource source;
    source.missing = {10, 20, 30, 31};
    const RibbonMarkup markup = keepAvailable(
        read("<ribbon><tab id='a' text='1'><group id='one' text='1'><button command='10' icon='x'/></group>"
             "<group id='two' text='1'><button command='20' icon='x'/><button command='21' "
             "icon='x'/></group></tab>"
             "<tab id='b' text='1'><group id='three' text='1'><menu id='m' text='1' icon='x'>"
             "<button command='30'/><separator/><button command='31'/></menu></group></tab></ribbon>"),
        source);
    ASSERT_EQ(markup.tabs.size(), 1U);
    ASSERT_EQ(markup.tabs[0].groups.size(), 1U);
    EXPECT_EQ(markup.tabs[0].groups[0].id, QStringLiteral("two"));
    ASSERT_EQ(markup.tabs[0].groups[0].items.size(), 1U);
    EXPECT_EQ(markup.tabs[0].groups[0].items[0].command, 21);
}

TEST(RibbonMarkupTest, ASplitButtonKeepsTheHalfThatWorks) {
    NumberedSource source;
    source.missing = {40, 51};
    const RibbonMarkup markup =
        keepAvailable(read(inGroup("<split command='40' text='40' icon='x'><button command='41'/></split>"
                                   "<split command='50' icon='x'><button command='51'/></split>")),
                      source);
    const std::vector<RibbonItem>& items = markup.tabs.at(0).groups.at(0).items;
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].kind, RibbonItem::Kind::Menu);
    EXPECT_EQ(items[0].text, 40);
    EXPECT_EQ(items[0].entries.at(0).command, 41);
    EXPECT_EQ(items[1].kind, RibbonItem::Kind::Button);
    EXPECT_EQ(items[1].command, 50);
}

TEST(RibbonMarkupTest, NoSeparatorStandsAtAnEndOrTwice) {
    NumberedSource source;
    source.missing = {40, 42, 44};
    const RibbonMarkup markup = keepAvailable(
        read(inGroup("<menu id='m' text='1' icon='x'><button command='40'/><separator/><button command='41'/>"
                     "<separator/><button command='42'/><separator/><button command='43'/><separator/>"
                     "<button command='44'/></menu>")),
        source);
    const std::vector<RibbonItem>& entries = markup.tabs.at(0).groups.at(0).items.at(0).entries;
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].command, 41);
    EXPECT_EQ(entries[1].kind, RibbonItem::Kind::Separator);
    EXPECT_EQ(entries[2].command, 43);
}

TEST(RibbonMarkupTest, ACommandHasItsOwnTextUnlessTheMarkupNamesAnother) {
    struct : NumberedSource {
        int commandText(int command) const override { return command + 70000; }
    } source;
    RibbonMarkup markup =
        read(inGroup("<button command='10' text='11' icon='a'/><split command='12'>"
                     "<button command='13'/><separator/></split>"
                     "<menu id='m' text='5' icon='b'><button command='14'/></menu>"));
    nameCommands(markup, source);
    const std::vector<RibbonItem>& items = markup.tabs.at(0).groups.at(0).items;
    EXPECT_EQ(items[0].text, 11);
    EXPECT_EQ(items[0].icon, QStringLiteral("a"));
    EXPECT_EQ(items[1].text, 70012);
    EXPECT_TRUE(items[1].icon.isEmpty());
    EXPECT_EQ(items[1].entries[0].text, 70013);
    EXPECT_EQ(items[1].entries[1].text, 0);
    EXPECT_EQ(items[2].text, 5);
    EXPECT_EQ(items[2].icon, QStringLiteral("b"));
    EXPECT_EQ(items[2].entries[0].text, 70014);
}

}  // namespace
