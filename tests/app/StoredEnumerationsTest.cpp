#include "app/SortMode.h"
#include "app/ViewMode.h"

namespace {

TEST(StoredEnumerations, NumbersAndNamesGoBothWays) {
    for (const app::NumberedName& row : app::SortModes()) {
        const app::SortMode mode = app::SortModeFromIntegral(row.number);
        EXPECT_EQ(ToString(mode), QString(row.name));
        EXPECT_EQ(app::SortModeFromString(row.name), mode);
    }
    for (const app::NumberedName& row : app::ViewModes()) {
        const app::ViewMode mode = app::ViewModeFromIntegral(row.number);
        EXPECT_EQ(ToString(mode), QString(row.name));
        EXPECT_EQ(app::ViewModeFromString(row.name), mode);
    }
    EXPECT_EQ(app::SortModes().size(), 55u);
    EXPECT_EQ(app::SortModeFromIntegral(59), app::SortMode::Kind);
    EXPECT_EQ(app::ViewModes().size(), 4u);
}

TEST(StoredEnumerations, UnknownNumbersAndNamesThrow) {
    for (const int number : {-1, 0, 19, 20, 28, 34, 60, 1 << 30})
        EXPECT_THROW(app::SortModeFromIntegral(number), app::InvalidEnumeration) << number;
    for (const int number : {-1, 0, 5})
        EXPECT_THROW(app::ViewModeFromIntegral(number), app::InvalidEnumeration);
    EXPECT_THROW(app::SortModeFromString(QStringLiteral("name")), app::InvalidEnumeration);
    EXPECT_THROW(app::ViewModeFromString(QString()), app::InvalidEnumeration);
}

}  // namespace
