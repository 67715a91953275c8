#include "platform/CommandText.h"

#include <gtest/gtest.h>

using platform::CommandText;

TEST(CommandText, AppendingAnotherTextKeepsBoundsAndOrigins) {
    CommandText inner;
    inner.literal("\"").outside("a b").literal("\"");
    CommandText line("exiftool ");
    line.append(inner).typed("");
    ASSERT_EQ(line.text(), "exiftool \"a b\"");
    ASSERT_EQ(line.pieces().size(), 4U);
    const CommandText::Piece outside = line.pieces()[2];
    EXPECT_EQ(outside.origin, CommandText::Origin::Outside);
    EXPECT_EQ(line.text().substr(outside.begin, outside.end - outside.begin), "a b");
}
