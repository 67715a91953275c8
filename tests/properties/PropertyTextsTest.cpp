#include "properties/PropertyTexts.h"

#include <gtest/gtest.h>

namespace {

using namespace properties;

constexpr std::int64_t kSecond = 1'000'000'000;

TEST(PropertyTexts, TimesWithTheirZone) {
    struct Case {
        const char* text;
        std::optional<std::int64_t> nanoseconds;
    };
    const Case cases[] = {
        {"2001:09:09 01:46:40Z", 1'000'000'000 * kSecond},
        {"2001-09-09T01:46:40.5Z", 1'000'000'000 * kSecond + kSecond / 2},
        {"2001-09-09T03:46:40+02:00", 1'000'000'000 * kSecond},
        {"UTC 2001-09-09 01:46:40", 1'000'000'000 * kSecond},
        {"2001-09-09 01:46:40 UTC", 1'000'000'000 * kSecond},
        {"2001:09:08 20:16:40-05:30", 1'000'000'000 * kSecond},
        {"1969-12-31T23:59:59Z", -kSecond},
        {"0000:00:00 00:00:00", std::nullopt},
        {"2001:13:09 01:46:40", std::nullopt},
        {"2001:09:09 25:00:00", std::nullopt},
        {"9999:01:01 00:00:00Z", std::nullopt},
        {"yesterday", std::nullopt},
        {"", std::nullopt},
    };
    for (const Case& one : cases) {
        const auto time = parsePointInTime(QString::fromLatin1(one.text));
        EXPECT_EQ(time ? std::optional(time->nanoseconds) : std::nullopt, one.nanoseconds) << one.text;
    }
}

TEST(PropertyTexts, Fractions) {
    const std::pair<const char*, std::optional<Rational>> cases[] = {
        {"1/250", Rational{1, 250}}, {"-2/3", Rational{-2, 3}},
        {"2.8", Rational{28, 10}},   {"-0.5", Rational{-5, 10}},
        {"7", Rational{7, 1}},       {"1/0", std::nullopt},
        {"1/2/3", std::nullopt},     {"", std::nullopt},
        {"f/2.8", std::nullopt},     {"99999999999999999999", std::nullopt},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(parseRational(QString::fromLatin1(text)), expected) << text;
}

TEST(PropertyTexts, BytesThatAreNoUtf8AreLatin1) {
    EXPECT_EQ(textFromBytes("Stra\xC3\x9F"
                            "e"),
              QString::fromUtf8("Straße"));
    EXPECT_EQ(textFromBytes("Stra\xDF"
                            "e  "),
              QString::fromUtf8("Straße"));
    EXPECT_EQ(textFromBytes(std::string("a\0b", 3)), "a");
}

TEST(PropertyTexts, ListsLoseBlanksAndEmptyElements) {
    EXPECT_EQ(splitList(QStringLiteral(" a b ;; c;")), (QStringList{"a b", "c"}));
}

}  // namespace
