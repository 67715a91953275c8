#include "browser/NameOrder.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using browser::NameOrder;

std::vector<std::string> sortedNames(const NameOrder& order, const std::vector<std::string>& names) {
    std::vector<std::string_view> views(names.begin(), names.end());
    std::vector<std::string> result;
    for (const NameOrder::Ranked& ranked : order.sorted(views)) result.push_back(names[ranked.index]);
    return result;
}

const QLocale kEnglish(QLocale::English);

TEST(NameOrder, TakesNumbersByValueInTheCLocaleToo) {
    const NameOrder order(NameOrder::Numbers::ByValue, QLocale::c());
    EXPECT_TRUE(order.usesShortKeys());
    EXPECT_EQ(sortedNames(order, {"a10", "a9", "A1", "b", "a 2", "a02b", "10", "9", "_x"}),
              (std::vector<std::string>{"_x", "9", "10", "a 2", "A1", "a02b", "a9", "a10", "b"}));
}

TEST(NameOrder, TakesDigitsOneByOneWhenNotNatural) {
    const NameOrder order(NameOrder::Numbers::ByDigit, kEnglish);
    EXPECT_EQ(sortedNames(order, {"a9", "a10", "A1"}), (std::vector<std::string>{"A1", "a10", "a9"}));
}

TEST(NameOrder, EqualNamesKeepTheirPlacesAndShareARank) {
    const NameOrder order(NameOrder::Numbers::ByValue, kEnglish);
    const std::vector<std::string_view> names{"b1", "A1", "a01", "a1"};
    const auto ranked = order.sorted(names);
    EXPECT_EQ(ranked[0].index, 1U);
    EXPECT_EQ(ranked[1].index, 2U);
    EXPECT_EQ(ranked[2].index, 3U);
    EXPECT_EQ(ranked[0].rank, ranked[2].rank);
    EXPECT_NE(ranked[2].rank, ranked[3].rank);
}

// Random names made of what makes the order hard; every pair must stand as the collator alone would have it.
std::vector<std::string> hardNames(unsigned seed, bool foreign) {
    std::mt19937 random(seed);
    std::vector<std::string> parts{"IMG_", "img_", "1",    "01",  "0",
                                   "10",   "2",    "99",   "100", "-",
                                   " ",    ".",    ".jpg", "a",   "B",
                                   "z",    "ch",   "(",    ")",   "~",
                                   "$",    "'",    "+",    "00",  "1234567890123456789012345",
                                   "_",    ",",    "#",    "{",   "@",
                                   "&",    "Z",    "007"};
    if (foreign)
        parts.insert(parts.end(), {"\xC3\xA9", "\xC3\x9F", "\xE6\x97\xA5", "\xF0\x9F\x93\xB7", "\xE9\xFC"});
    std::vector<std::string> names;
    for (int i = 0; i < 400; ++i) {
        std::string name;
        for (std::size_t length = 1 + random() % 5; length > 0; --length)
            name += parts[random() % parts.size()];
        names.push_back(name);
    }
    return names;
}

struct CollatorCase {
    const char* name;
    QLocale locale;
    NameOrder::Numbers numbers;
    bool foreign;
};

class NameOrderAgainstCollator : public testing::TestWithParam<CollatorCase> {};

TEST_P(NameOrderAgainstCollator, StandsAsTheCollatorWouldHaveIt) {
    const auto& [name, locale, numbers, foreign] = GetParam();
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(numbers == NameOrder::Numbers::ByValue);
    const NameOrder order(numbers, locale);
    const std::vector<std::string> names = sortedNames(order, hardNames(7, foreign));
    for (std::size_t i = 0; i < names.size(); ++i)
        for (std::size_t j = i + 1; j < names.size(); j += 7)
            EXPECT_LE(collator.compare(platform::wide(names[i]), platform::wide(names[j])), 0)
                << names[i] << " | " << names[j];
}

INSTANTIATE_TEST_SUITE_P(
    Locales, NameOrderAgainstCollator,
    testing::Values(
        CollatorCase{"Natural", kEnglish, NameOrder::Numbers::ByValue, false},
        CollatorCase{"NaturalWithForeignNames", kEnglish, NameOrder::Numbers::ByValue, true},
        CollatorCase{"ByDigit", kEnglish, NameOrder::Numbers::ByDigit, true},
        CollatorCase{"GermanNatural", QLocale(QLocale::German), NameOrder::Numbers::ByValue, true},
        CollatorCase{"CzechWithItsLetterPairs", QLocale(QLocale::Czech), NameOrder::Numbers::ByValue, true}),
    [](const auto& info) { return info.param.name; });

TEST(NameOrder, LeavesShortKeysWhereTheLocaleHasLetterPairs) {
    EXPECT_FALSE(NameOrder(NameOrder::Numbers::ByValue, QLocale(QLocale::Czech)).usesShortKeys());
    EXPECT_TRUE(NameOrder(NameOrder::Numbers::ByValue, QLocale(QLocale::French)).usesShortKeys());
}

TEST(NameOrder, RanksRiseAcrossPlainAndForeignNames) {
    const std::vector<std::string> names = hardNames(11, true);
    const std::vector<std::string_view> views(names.begin(), names.end());
    const NameOrder order(NameOrder::Numbers::ByValue, kEnglish);
    const auto ranked = order.sorted(views);
    ASSERT_EQ(ranked.size(), names.size());
    for (std::size_t i = 1; i < ranked.size(); ++i) {
        const int compared = order.compare(views[ranked[i - 1].index], views[ranked[i].index]);
        EXPECT_LE(compared, 0);
        EXPECT_EQ(ranked[i].rank - ranked[i - 1].rank, compared == 0 ? 0U : 1U);
    }
}

}  // namespace
