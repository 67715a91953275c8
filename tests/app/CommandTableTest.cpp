#include "app/CommandTable.h"

#include "app/LanguageFile.h"
#include "app/SortMode.h"

#include <set>

namespace {

TEST(CommandTable, EveryIdAndNameStandsOnce) {
    std::set<int> ids;
    std::set<std::string_view> names;
    for (const app::Command& command : app::commandTable()) {
        EXPECT_TRUE(ids.insert(command.id).second) << command.id;
        EXPECT_TRUE(names.insert(command.name).second) << command.name;
        EXPECT_EQ(app::findCommand(command.id), &command);
    }
    EXPECT_EQ(app::findCommand(0), nullptr);
    EXPECT_EQ(app::findCommand(7), nullptr);
    EXPECT_EQ(app::findCommand(1 << 30), nullptr);
}

TEST(CommandTable, KnowsEveryNumberThatCanCome) {
    struct Range {
        int first;
        int last;
    };
    constexpr Range kRanges[] = {
        {6, 6},         {8, 10},        {12, 15},       {17, 20},       {22, 36},       {57, 106},
        {108, 142},     {146, 169},     {171, 174},     {176, 178},     {180, 181},     {183, 188},
        {191, 204},     {206, 206},     {208, 217},     {219, 223},     {226, 228},     {234, 242},
        {245, 248},     {250, 279},     {284, 285},     {298, 300},     {302, 302},     {304, 307},
        {361, 361},     {1818, 1824},   {5033, 5041},   {5050, 5050},   {5052, 5052},   {8003, 8003},
        {8056, 8056},   {10004, 10004}, {10007, 10007}, {10033, 10042}, {10044, 10044}, {10062, 10062},
        {10065, 10072}, {10075, 10075}, {10077, 10077}, {30001, 30001}, {40011, 40014}, {40063, 40065},
        {40071, 40076}, {40089, 40094}, {40100, 40100}, {40106, 40108}, {40110, 40110}, {40113, 40113},
        {40115, 40117}, {40173, 40173}, {50001, 50018}, {50021, 50027}, {50029, 50033}, {50035, 50059},
        {50101, 50118}, {50121, 50127}, {50129, 50133}, {50135, 50159}, {60000, 60008},
    };
    std::size_t expected = 0;
    for (const Range& range : kRanges) {
        for (int id = range.first; id <= range.last; ++id, ++expected)
            EXPECT_NE(app::findCommand(id), nullptr) << id;
    }
    EXPECT_EQ(app::commandTable().size(), expected);
}

TEST(CommandTable, EveryCommandOfAMenuHasAText) {
    const app::LanguageFile english(TAGWRIGHT_BIN_DIR, 9);
    for (const app::Command& command : app::commandTable()) {
        if (command.textNumber != 0) {
            EXPECT_TRUE(english.hasText(command.textNumber)) << command.name;
        }
    }
}

TEST(CommandTable, SortCommandsCarryTheirSortMode) {
    for (const app::Command& command : app::commandTable()) {
        if (command.id < app::command::kSortBy || command.id > app::command::kGroupBy + 99) continue;
        const bool groups = command.id >= app::command::kGroupBy;
        const int mode = command.id - (groups ? app::command::kGroupBy : app::command::kSortBy);
        EXPECT_EQ(QString::fromLatin1(command.name), QLatin1StringView(groups ? "GroupBy" : "SortBy") +
                                                         toString(app::sortModeFromIntegral(mode)));
    }
}

TEST(CommandTable, TheEightHotKeysDoWhatTheirKeysSay) {
    struct Expected {
        int id;
        Qt::Key key;
        int command;
        int viewMode;
    };
    constexpr Expected kExpected[] = {
        {8, Qt::Key_F2, 8, 0},  {9, Qt::Key_F3, 9, 0},    {17, Qt::Key_F4, 17, 0}, {12, Qt::Key_D, 12, 1},
        {13, Qt::Key_L, 13, 2}, {361, Qt::Key_T, 361, 3}, {15, Qt::Key_J, 15, 4},  {248, Qt::Key_F5, 0, 0}};
    ASSERT_EQ(app::hotKeys().size(), std::size(kExpected));
    for (std::size_t row = 0; row < std::size(kExpected); ++row) {
        const app::HotKey& key = app::hotKeys()[row];
        EXPECT_EQ(key.id, kExpected[row].id);
        EXPECT_EQ(key.key, kExpected[row].key);
        EXPECT_EQ(key.command, kExpected[row].command);
        EXPECT_EQ(key.viewMode, kExpected[row].viewMode);
        EXPECT_TRUE(key.modifiers.testFlag(Qt::ControlModifier));
        EXPECT_EQ(key.modifiers.testFlag(Qt::ShiftModifier), key.id == 17);
        if (key.command != 0) {
            EXPECT_NE(app::findCommand(key.command), nullptr);
        }
    }
    for (const app::Shortcut& shortcut : app::shortcuts()) {
        EXPECT_NE(app::findCommand(shortcut.command), nullptr) << shortcut.keys;
    }
}

}  // namespace
