#include "edit/DateValue.h"
#include "edit/NumberText.h"
#include "tags/Entries.h"

#include <gtest/gtest.h>

#include <QDateTime>

using namespace edit;
using namespace tags;

namespace {

std::string text(const QString& value) {
    return value.toStdString();
}

struct DateCase {
    const char* value;
    const char* moved;  ///< with the date a year and a day later, the time an hour later; null: no date
};

struct IntegerCase {
    const char* typed;
    const char* before;
    const char* designed;
    const char* corrected;  ///< null: refused
};

}  // namespace

TEST(DateValue, EachPartThatAValueHasIsReadAndNoOther) {
    const DateCase cases[] = {
        {"2015:06:01 12:13:14", "2016:06:02 13:13:14"},
        {"2015:06:01 12:13:14.50+02:00", "2016:06:02 13:13:14.50+02:00"},
        {"2015:06:01 12:13:14Z", "2016:06:02 13:13:14Z"},
        {"2015:06:01 12:13", "2016:06:02 13:13"},
        {"2015:06:01 12:13+01:00", "2016:06:02 13:13+01:00"},
        {"2015:06:01", "2016:06:02"},
        {"2015-6-1", "2016:06:02"},
        {"2015:06", "2016:06"},
        {"2015", "2016"},
        {"12:13:14", "13:13:14"},
        {"12:13:14-05:00", "13:13:14-05:00"},
        {"9:05:07.25", "10:05:07.25"},
        {" 2015-06-01T12:13:14 ", "2016:06:02 13:13:14"},
        {"2015:06:01 12:13:14+02:00 DST", "2016:06:02 13:13:14+02:00 DST"},
        {"0000:00:00 00:00:00", nullptr},
        {"2015:02:30", nullptr},
        {"2015:06:01 24:00:00", nullptr},
        {"2015:06:01 12:13:60", nullptr},
        {"yesterday", nullptr},
        {"    :  :     :  :  ", nullptr},
        {"", nullptr},
        {"+02:00", nullptr},
        {"2015:06:01 12:13:14 and more", nullptr},
        {"20150601", nullptr},
        {"12", nullptr},
    };
    for (const DateCase& row : cases) {
        std::optional<DateValue> value = readDateValue(QString::fromUtf8(row.value));
        EXPECT_EQ(value.has_value(), row.moved != nullptr) << row.value;
        if (!value || row.moved == nullptr) continue;
        value->date = value->date.addYears(1).addDays(value->dateFields == DateValue::DateFields::Day);
        value->time = value->time.addSecs(3600);
        EXPECT_EQ(text(dateValueText(*value)), row.moved);
    }
}

TEST(DateValue, NowHasItsOwnFractionAndZoneInTheFormOfTheValue) {
    const struct {
        const char* before;
        const char* after;
    } cases[] = {
        {"2015:06:01 12:13:14", "2015:06:01 12:13:14"},
        {"2015:06:01 12:13:14.5+02:00", "2015:06:01 12:13:14.0-03:30"},
        {"2015:06:01 12:13:14.123456Z", "2015:06:01 12:13:14.045000-03:30"},
        {"2015:06:01 12:13:14+0200", "2015:06:01 12:13:14-0330"},
        {"12:13:14.12+01:00 DST", "12:13:14.04-03:30"},
    };
    const QDateTime moment(QDate(2026, 1, 2), QTime(3, 4, 5, 45), Qt::OffsetFromUTC, -(3 * 60 + 30) * 60);
    for (const auto& row : cases) {
        DateValue value = *readDateValue(QString(row.before));
        setFractionAndZone(value, moment);
        EXPECT_EQ(dateValueText(value).toStdString(), row.after);
    }
}

TEST(DateValue, TheDesignedFormCutsByPositionAndJoinsWithoutZeros) {
    const struct {
        const char* value;
        const char* joined;  ///< null: no moment
    } cases[] = {
        {"2015:06:01 12:03:04", "2015:6:1 12:3:4"}, {"2015:06:01 12:03:04.50+02:00", "2015:6:1 12:3:4"},
        {"2015:06:01", "2015:6:1 0:0:0"},           {"2015:06:01 ", "2015:6:1 0:0:0"},
        {"2015/06/01X09:08:07", "2015:6:1 9:8:7"},  {"12:13:14", nullptr},
        {"0000:00:00 00:00:00", nullptr},           {"text", nullptr},
    };
    for (const auto& row : cases) {
        const auto moment = cutDateByPosition(QString::fromUtf8(row.value));
        EXPECT_EQ(moment.has_value(), row.joined != nullptr) << row.value;
        if (moment && row.joined != nullptr) {
            EXPECT_EQ(text(joinDateAndTime(moment->date, moment->time)), row.joined);
        }
    }
}

TEST(DateValue, TheMomentIsOfLocalTimeAndHasWholeSeconds) {
    const QDate date(2015, 6, 1);
    EXPECT_EQ(localMoment(date, QTime(12, 13, 14, 999)).nanoseconds,
              QDateTime(date, QTime(12, 13, 14)).toSecsSinceEpoch() * 1'000'000'000);
    EXPECT_LT(localMoment(QDate(1, 1, 1), QTime(0, 0)).nanoseconds,
              localMoment(QDate(1700, 1, 1), QTime(0, 0)).nanoseconds);
    EXPECT_GT(localMoment(QDate(9999, 1, 1), QTime(0, 0)).nanoseconds,
              localMoment(QDate(2250, 1, 1), QTime(0, 0)).nanoseconds);
}

TEST(NumberText, AnIntegerIsReadAsDesignedOrRefused) {
    const IntegerCase cases[] = {
        {"", "5", "", ""},
        {"7", "5", "7", "7"},
        {"  7", "5", "7", "7"},
        {"abc", "5", "0", nullptr},
        {"-5", "5", "0", "-5"},
        {"+5", "5", "0", "+5"},
        {"12abc", "5", "12", nullptr},
        {"1.5", "5", "1", nullptr},
        {"2147483648", "5", "-2147483648", "2147483648"},
        {"4294967295", "5", "-1", "4294967295"},
        {"4294967296", "5", "0", "4294967296"},
        {"9223372036854775807123", "5", "0", "9223372036854775807123"},
        {"0x1F", "5", "0", "0x1F"},
        {"60 mm", "50 mm", "60", "60 mm"},
        {"60", "50 mm", "60", "60"},
        {"60 cm", "50 mm", "60", nullptr},
        {"9 9 9", "8 8 8", "9", "9 9 9"},
        {"9 9", "8 8 8", "9", nullptr},
        {"2.2.0.0", "2.3.0.0", "2", "2.2.0.0"},
        {"-1 -2", "3 4", "0", "-1 -2"},
        {"off", "off", "0", "off"},
        {"on", "off", "0", nullptr},
        {"5", "off", "5", "5"},
        {"x\" -if \"", "5", "0", nullptr},
    };
    for (const IntegerCase& row : cases) {
        const QString typed = QString::fromUtf8(row.typed);
        EXPECT_EQ(text(designedInteger(typed)), row.designed) << row.typed;
        const auto corrected = correctedInteger(typed, QString::fromUtf8(row.before));
        EXPECT_EQ(corrected.has_value(), row.corrected != nullptr) << row.typed;
        if (corrected && row.corrected != nullptr) {
            EXPECT_EQ(text(*corrected), row.corrected);
        }
    }
}

TEST(NumberText, ARationalReplacesTheOldOneUnlessItIsNone) {
    const struct {
        const char* typed;
        const char* before;
        bool taken;
    } cases[] = {
        {"1/60", "1/30", true},
        {"0.5", "1/30", true},
        {".5", "1/30", true},
        {"1e-3", "1/30", true},
        {"-2.5", "0", true},
        {"inf", "0", true},
        {"-inf", "0", true},
        {"undef", "0", true},
        {"", "0", true},
        {"55.0 mm", "50 mm", true},
        {"55.0 mm", "50", false},
        {"1/0", "0", true},
        {"abc", "0", false},
        {"1/31/3", "1/3", false},
        {"1,5", "1", false},
        {"24-70mm f/2.8", "18-55mm f/3.5", true},
        {"24-70mm", "18-55mm f/3.5", false},
        {"1/3 ", "1/3", true},
        {"+1/3 EV", "-2/3 EV", true},
        {"0.7 0.8", "1", false},
    };
    for (const auto& row : cases) {
        const QString typed = QString::fromUtf8(row.typed);
        const auto value = correctedRational(typed, QString::fromUtf8(row.before));
        EXPECT_EQ(value.has_value(), row.taken) << row.typed;
        if (value && row.taken) {
            EXPECT_EQ(*value, typed.trimmed());
        }
    }
    EXPECT_EQ(text(designedRational("1/3", "1/3")), "1/31/3");
    EXPECT_EQ(designedRational("1", QString(300, u'9')).size(), 256);
}

TEST(Entries, GoThereAndBackWithEveryCharacter) {
    const QStringList lists[] = {{},
                                 {"one"},
                                 {"", " ", "\t"},
                                 {"e", QStringLiteral(u"\uFDD0"), QStringLiteral(u"\uFDD0\n\u2028")},
                                 {"one", "two, three"},
                                 {"with\nline", "feed"},
                                 {"\u65E5\u672C", "\u05E9\u05DC"}};
    for (const QStringList& entries : lists) EXPECT_EQ(splitEntries(joinEntries(entries)), entries);
    EXPECT_EQ(splitEntries("  one \n\n \ntwo\n"), QStringList({"  one ", " ", "two"}));
    EXPECT_EQ(text(panelText({"one", "tw\no\x7F", "\x01"})), "one, tw.o., .");
}
