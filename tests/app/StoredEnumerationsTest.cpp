#include "app/SortMode.h"
#include "app/ViewMode.h"

namespace {

TEST(StoredEnumerations, NumbersAndNamesGoBothWays) {
    for (const app::NumberedName& row : app::sortModes()) {
        const app::SortMode mode = app::sortModeFromIntegral(row.number);
        EXPECT_EQ(toString(mode), QString(row.name));
        EXPECT_EQ(app::sortModeFromString(row.name), mode);
    }
    for (const app::NumberedName& row : app::viewModes()) {
        const app::ViewMode mode = app::viewModeFromIntegral(row.number);
        EXPECT_EQ(toString(mode), QString(row.name));
        EXPECT_EQ(app::viewModeFromString(row.name), mode);
    }
    EXPECT_EQ(app::sortModes().size(), 55u);
    EXPECT_EQ(app::sortModeFromIntegral(59), app::SortMode::Kind);
    EXPECT_EQ(app::viewModes().size(), 4u);
}

TEST(StoredEnumerations, UnknownNumbersAndNamesThrow) {
    for (const int number : {-1, 0, 19, 20, 28, 34, 60, 1 << 30})
        EXPECT_THROW(app::sortModeFromIntegral(number), app::InvalidEnumeration) << number;
    for (const int number : {-1, 0, 5})
        EXPECT_THROW(app::viewModeFromIntegral(number), app::InvalidEnumeration);
    EXPECT_THROW(app::sortModeFromString(QStringLiteral("name")), app::InvalidEnumeration);
    EXPECT_THROW(app::viewModeFromString(QString()), app::InvalidEnumeration);
}

}  // namespace
