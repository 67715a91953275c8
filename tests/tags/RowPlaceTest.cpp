#include "tags/RowPlace.h"

#include <gtest/gtest.h>

namespace {

/// "7 IFD0 Make" for a row each, by the number of the group.
std::vector<tags::MetadataRow> rowsOf(const QStringList& lines) {
    std::vector<tags::MetadataRow> rows;
    for (const QString& line : lines) {
        const QStringList words = line.split(u' ');
        tags::MetadataRow row;
        row.groupId = words[0].toUInt();
        row.group = words[1];
        row.tag = words[2];
        rows.push_back(row);
    }
    return rows;
}

TEST(RowPlace, IsFoundByGroupAndTagWhateverElseTheFileHolds) {
    const QStringList before = {"7 IFD0 Make", "7 IFD0 Model",  "7 IFD0 Artist", "8 GPS Status",
                                "9 XMP Model", "9 XMP Subject", "9 XMP Subject", "400 Ours Thing"};
    const struct {
        const char* why;
        int position;
        QStringList after;
        int found;
        bool isSame;
    } cases[] = {
        {"nothing has changed", 2, before, 2, true},
        {"rows have come before it",
         1,
         {"3 File Size", "7 IFD0 Make", "7 IFD0 Kind", "7 IFD0 Model"},
         3,
         true},
        {"its value was written, which moved it", 0, {"7 IFD0 Model", "7 IFD0 Make"}, 1, true},
        {"a twin in another group", 4, {"7 IFD0 Model", "9 XMP Model"}, 1, true},
        {"the second of two of one name", 6, {"9 XMP Subject", "9 XMP Subject"}, 1, true},
        {"fewer of one name", 6, {"9 XMP Model", "9 XMP Subject"}, 1, true},
        {"a group with another number in this file", 7, {"401 Else Thing", "402 Ours Thing"}, 1, true},
        {"deleted: the next of its group", 1, {"7 IFD0 Make", "7 IFD0 Artist", "8 GPS Status"}, 1, false},
        {"deleted at the end of its group", 2, {"7 IFD0 Make", "7 IFD0 Model", "8 GPS Status"}, 1, false},
        {"its group has gone: the next one", 3, {"9 XMP Model", "7 IFD0 Make"}, 0, false},
        {"its group was the last one", 6, {"7 IFD0 Make", "8 GPS Status"}, 1, false},
        {"nothing is left", 0, {}, -1, false},
    };
    const std::vector<tags::MetadataRow> rows = rowsOf(before);
    for (const auto& each : cases) {
        const tags::FoundRow found = tags::findPlace(rowsOf(each.after), tags::placeOf(rows, each.position));
        EXPECT_EQ(found.position, each.found) << each.why;
        EXPECT_EQ(found.isSame, each.isSame) << each.why;
    }
}

}  // namespace
