#include "edit/ValueDialogs.h"

#include "edit/DateValue.h"
#include "edit/EditControls.h"
#include "edit/EditTexts.h"
#include "support/EditedFile.h"
#include "support/RunHere.h"
#include "support/UnprivilegedUser.h"
#include "taglists/DialogDeleteATag.h"
#include "taglists/DialogDeleteGroup_FromOneFile.h"
#include "tags/Entries.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimeEdit>

using namespace edit;
using namespace taglists;
using tags::TagEditContext;
using tags::ValueKind;

namespace {

class ValueDialogs : public EditedFile {
 protected:
    /// Runs the dialog of the kind, with what happens in it; the box must have been closed by that.
    int run(ValueKind kind, const std::function<void(QDialog&)>& use) {
        QMetaObject::invokeMethod(
            qApp,
            [&] {
                auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                ASSERT_NE(dialog, nullptr);
                use(*dialog);
                if (dialog->isVisible()) {
                    wasLeftOpen = true;
                    dialog->reject();
                }
            },
            Qt::QueuedConnection);
        wasLeftOpen = false;
        return ::edit::editValue(parts, edit, kind, nullptr);
    }

    void open(const char16_t* group, const char16_t* name, const char* value) {
        const tags::TagRecord tag = record(group, name);
        edit = {};
        edit.tagId = static_cast<int>(tag.id);
        edit.title = QStringView(tag.name).toString();
        edit.group = QStringView(tag.group).toString();
        edit.value = QString::fromUtf8(value);
    }

    template <typename Control>
    static Control& at(const QDialog& dialog, int number) {
        return *qobject_cast<Control*>(dialogs::findControl(dialog, number));
    }
    void expectDone(jobs::JobSource& dialog) {
        const exiftool::Outcomes outcomes = support::runHere(dialog.takeJob(), context, runner);
        ASSERT_EQ(outcomes.size(), 1U);
        EXPECT_EQ(outcomes.front().kind, exiftool::OutcomeKind::Done) << outcomes.front().words;
    }
    static void ok(QDialog& dialog) {
        QTest::mouseClick(&at<QAbstractButton>(dialog, dialogs::kOkControl), Qt::LeftButton);
    }

    TagEditContext edit;
    bool wasLeftOpen = false;
};

}  // namespace

TEST_F(ValueDialogs, EachKindHasItsFormItsTitleLabelAndHelp) {
    const struct {
        ValueKind kind;
        int number;
        const char16_t* group;
        const char16_t* name;
        const char* title;
        const char* label;
        int field;
    } cases[] = {
        {ValueKind::Date, 185, u"ExifIFD", u"CreateDate", "Modify: CreateDate", "Create Date",
         ::edit::control::kDate},
        {ValueKind::Integer, 133, u"ExifIFD", u"ISO", "Modify: ISO", "ISO", ::edit::control::kText},
        {ValueKind::Text, 134, u"XMP-dc", u"Title", "Modify: Title", "Title", ::edit::control::kText},
        {ValueKind::Rating, 186, u"XMP-Xmp", u"Rating", "Modify: Rating", "Rating", ::edit::control::kRating},
        {ValueKind::List, 135, u"IFD0", u"Orientation", "Modify: Orientation", "Orientation",
         ::edit::control::kChoice},
        {ValueKind::Rational, 147, u"ExifIFD", u"FNumber", "Modify: FNumber", "F Number",
         ::edit::control::kText},
    };
    for (const auto& row : cases) {
        open(row.group, row.name, "");
        const int result = run(row.kind, [&](QDialog& dialog) {
            EXPECT_EQ(dialog.property(dialogs::kTemplateNumberProperty).toInt(), row.number);
            EXPECT_EQ(dialog.windowTitle().toStdString(), row.title);
            EXPECT_THAT(at<QLabel>(dialog, ::edit::control::kTagLabel).text().toStdString(),
                        testing::StartsWith(row.label));
            EXPECT_THAT(at<QPlainTextEdit>(dialog, ::edit::control::kHelp).toPlainText().toStdString(),
                        testing::HasSubstr(QString::fromUtf16(row.group).toStdString()));
            EXPECT_EQ(dialog.focusWidget(), &at<QWidget>(dialog, row.field)) << row.title;
            EXPECT_TRUE(at<QPushButton>(dialog, dialogs::kOkControl).isDefault()) << row.title;
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        EXPECT_EQ(result, 0) << row.title;
        EXPECT_EQ(edit.value, QString());
        EXPECT_FALSE(wasLeftOpen);
    }
    EXPECT_EQ(::edit::editValue(parts, edit, ValueKind::Binary, nullptr), 0);
    EXPECT_EQ(::edit::editValue(parts, edit, static_cast<ValueKind>(5), nullptr), 0);
}

TEST_F(ValueDialogs, AnIntegerThatIsNoneKeepsTheDialogOpen) {
    open(u"ExifIFD", u"ISO", "100");
    EXPECT_EQ(run(ValueKind::Integer,
                  [&](QDialog& dialog) {
                      auto& field = at<QLineEdit>(dialog, ::edit::control::kText);
                      EXPECT_EQ(field.selectedText(), QStringLiteral("100"));
                      QTest::keyClicks(&field, "abc");
                      QTest::keyClick(&field, Qt::Key_Return);
                      EXPECT_TRUE(dialog.isVisible());
                      EXPECT_EQ(at<QLabel>(dialog, ::edit::control::kHint).text(),
                                QStringLiteral("\"abc\" is not a whole number."));
                      QTest::keyClicks(&field, "-9999999999");
                      QTest::keyClick(&field, Qt::Key_Return);
                  }),
              1);
    EXPECT_EQ(edit.value, QStringLiteral("-9999999999"));
    context.settings.exifTool.correctedCommands = false;
    open(u"ExifIFD", u"ISO", "100");
    EXPECT_EQ(run(ValueKind::Integer,
                  [&](QDialog& dialog) {
                      at<QLineEdit>(dialog, ::edit::control::kText).setText("abc");
                      ok(dialog);
                  }),
              1);
    EXPECT_EQ(edit.value, QStringLiteral("0"));
}

TEST_F(ValueDialogs, ARationalReplacesOrAsDesignedIsAppended) {
    for (const bool corrected : {true, false}) {
        context.settings.exifTool.correctedCommands = corrected;
        open(u"ExifIFD", u"ExposureTime", "1/3");
        EXPECT_EQ(run(ValueKind::Rational, [&](QDialog& dialog) { ok(dialog); }), 1);
        EXPECT_EQ(edit.value.toStdString(), corrected ? "1/3" : "1/31/3");
    }
}

TEST_F(ValueDialogs, TextIsWholeAndEnterIsOk) {
    const QString whole = QString(100'000, u'x') + "\n\"<>%$()`\n\u65E5\u672C \u05E9\u05DC\u05D5\u05DD";
    open(u"XMP-dc", u"Title", "");
    edit.value = whole;
    EXPECT_EQ(run(ValueKind::Text,
                  [&](QDialog& dialog) {
                      auto& field = at<QPlainTextEdit>(dialog, ::edit::control::kText);
                      EXPECT_EQ(field.toPlainText(), whole);
                      field.moveCursor(QTextCursor::End);
                      QTest::keyClick(&field, Qt::Key_Return, Qt::ControlModifier);
                      QTest::keyClicks(&field, "end");
                      QTest::keyClick(&field, Qt::Key_Return);
                  }),
              1);
    EXPECT_EQ(edit.value, whole + "\nend");
    EXPECT_FALSE(wasLeftOpen);
}

TEST_F(ValueDialogs, EveryCharacterSurvivesAnEditBesideIt) {
    struct OddText {
        QString text;
        const char* shown;  ///< ends of lines as "|"
        bool severalEntries = false;
    };
    const OddText cases[] = {
        {QStringLiteral(u"one\r\ntwo\r\n"), "one|two|"},
        {"mixed\r\nends\nof\rlines", "mixed\u21B2|ends|of\u21B2lines"},
        {QStringLiteral(u"\u00A0a\u2003b\u3000\u202F"), "\u00A0a\u2003b\u3000\u202F"},
        {QStringLiteral(u"a\u2028b\u2029c\u0085d"), "a\u21B5b\u00B6c\u21B5d"},
        {QString::fromLatin1("\ta\x01\x1B\x7F\0z\t", 8), "\u2192a\u25A1\u25A1\u25A1\u25A1z\u2192"},
        {QStringLiteral(u"\uFDD0\uFDD1e\uFFFE\uFFFC\uFEFF"), "\u25A1\u25A1e\u25A1\u25A1\uFEFF"},
        {QStringLiteral(u"gr\xDCFC\xDCDF") + QString::fromUtf8("\xF0\x9F\x98\x80"),
         "gr\u25A1\u25A1\U0001F600"},
        {"\u2192\u25A1 as typed", "\u2192\u25A1 as typed"},
        {tags::joinEntries({" one ", "", "two\nlines", QStringLiteral(u"\uFDD0e\u2028")}),
         " one |\u2205|two\u21B5lines|\u25A1e\u21B5", true},
    };
    for (const OddText& row : cases) {
        open(u"XMP-dc", u"Title", "");
        edit.value = row.text;
        edit.severalEntries = row.severalEntries;
        EXPECT_EQ(run(ValueKind::Text, [&](QDialog& dialog) { ok(dialog); }), 1);
        EXPECT_EQ(edit.value, row.text) << row.shown;
        // What is typed, pasted and taken back leaves all else as it is.
        const bool isRefused = row.text.contains(QChar::Null);
        EXPECT_EQ(run(ValueKind::Text,
                      [&](QDialog& dialog) {
                          auto& field = at<QPlainTextEdit>(dialog, ::edit::control::kText);
                          EXPECT_EQ(field.toPlainText().replace(u'\n', u'|'),
                                    QString::fromUtf8(row.shown).replace(QChar::Nbsp, u' '));
                          field.moveCursor(QTextCursor::End);
                          QTest::keyClicks(&field, "!");
                          field.selectAll();
                          field.copy();
                          field.paste();
                          ok(dialog);
                      }),
                  isRefused ? 0 : 1);
        EXPECT_EQ(wasLeftOpen, isRefused);
        EXPECT_EQ(edit.value, isRefused ? row.text : row.text + "!") << row.shown;
    }
}

TEST_F(ValueDialogs, ADateKeepsWhatItsTagHas) {
    const struct {
        const char* value;
        bool hasDate;
        bool hasTime;
        const char* after;  ///< a day and an hour later
    } cases[] = {
        {"2015:06:01 12:13:14.50+02:00", true, true, "2015:06:02 13:13:14.50+02:00"},
        {"2015:06:01", true, false, "2015:06:02"},
        {"12:13:14+01:00", false, true, "13:13:14+01:00"},
    };
    for (const auto& row : cases) {
        open(u"XMP-Xmp", u"ModifyDate", row.value);
        EXPECT_EQ(run(ValueKind::Date,
                      [&](QDialog& dialog) {
                          auto& date = at<QDateEdit>(dialog, ::edit::control::kDate);
                          auto& time = at<QTimeEdit>(dialog, ::edit::control::kTime);
                          EXPECT_EQ(date.isVisible(), row.hasDate) << row.value;
                          EXPECT_EQ(time.isVisible(), row.hasTime) << row.value;
                          date.setDate(date.date().addDays(1));
                          time.setTime(time.time().addSecs(3600));
                          ok(dialog);
                      }),
                  1);
        EXPECT_EQ(edit.value.toStdString(), row.after);
    }
    context.settings.exifTool.correctedCommands = false;
    open(u"ExifIFD", u"CreateDate", "2015:06:01 02:03:04+02:00");
    run(ValueKind::Date, [&](QDialog& dialog) { ok(dialog); });
    EXPECT_EQ(edit.value.toStdString(), "2015:6:1 2:3:4");
    EXPECT_EQ(edit.fileTime, localMoment(QDate(2015, 6, 1), QTime(2, 3, 4)));
}

TEST_F(ValueDialogs, AValueThatIsNoDateStaysUntilOneIsChosen) {
    open(u"ExifIFD", u"CreateDate", "0000:00:00 00:00:00");
    EXPECT_EQ(run(ValueKind::Date,
                  [&](QDialog& dialog) {
                      EXPECT_THAT(at<QLabel>(dialog, ::edit::control::kHint).text().toStdString(),
                                  testing::HasSubstr("0000:00:00 00:00:00"));
                      EXPECT_EQ(at<QDateEdit>(dialog, ::edit::control::kDate).date(), QDate::currentDate());
                      ok(dialog);
                  }),
              1);
    EXPECT_EQ(edit.value, QStringLiteral("0000:00:00 00:00:00"));
    EXPECT_EQ(run(ValueKind::Date,
                  [&](QDialog& dialog) {
                      QTest::mouseClick(&at<QPushButton>(dialog, ::edit::control::kNow), Qt::LeftButton);
                      ok(dialog);
                  }),
              1);
    EXPECT_TRUE(readDateValue(edit.value).has_value()) << edit.value.toStdString();
}

TEST_F(ValueDialogs, ARatingBeginsWithItsOwnStars) {
    log.Append(8849, 2);
    const struct {
        const char* value;
        bool corrected;
        int begins;
    } cases[] = {{"3", true, 3}, {"", true, 0}, {"-1", true, 6}, {"4.5", true, -1}, {"3", false, 2}};
    for (const auto& row : cases) {
        context.settings.exifTool.correctedCommands = row.corrected;
        open(u"XMP-Xmp", u"Rating", row.value);
        EXPECT_EQ(run(ValueKind::Rating,
                      [&](QDialog& dialog) {
                          auto& choice = at<QComboBox>(dialog, ::edit::control::kRating);
                          EXPECT_EQ(choice.count(), row.corrected ? 7 : 6);
                          EXPECT_EQ(choice.currentIndex(), row.begins) << row.value;
                          ok(dialog);
                      }),
                  1);
        const bool isKept = row.begins < 0 || row.begins > 5;
        EXPECT_EQ(edit.value, isKept ? QString::fromUtf8(row.value) : QString::number(row.begins));
    }
    EXPECT_EQ(run(ValueKind::Rating,
                  [&](QDialog& dialog) {
                      auto& choice = at<QComboBox>(dialog, ::edit::control::kRating);
                      QTest::keyClicks(&choice, "5");
                      EXPECT_EQ(dialog.focusWidget(), &at<QPushButton>(dialog, dialogs::kOkControl));
                      QTest::keyClick(&dialog, Qt::Key_Return);
                  }),
              1);
    EXPECT_EQ(edit.selection, 5);
    EXPECT_EQ(edit.value, QStringLiteral("5"));
}

TEST_F(ValueDialogs, AChoiceGivesItsLabelAndItsCode) {
    open(u"IFD0", u"Orientation", "Rotate 180");
    edit.selection = labels.GetComboIndex(edit.tagId, edit.value);
    EXPECT_EQ(run(ValueKind::List,
                  [&](QDialog& dialog) {
                      auto& choice = at<QComboBox>(dialog, ::edit::control::kChoice);
                      EXPECT_EQ(choice.count(), labels.GetItemNumberFromCombo(edit.tagId));
                      EXPECT_EQ(choice.currentText(), QStringLiteral("Rotate 180"));
                      EXPECT_EQ(choice.currentData().toInt(), 3);
                      choice.setCurrentIndex(choice.findText("Rotate 90 CW"));
                      ok(dialog);
                  }),
              1);
    EXPECT_EQ(edit.value, QStringLiteral("Rotate 90 CW"));
    EXPECT_EQ(edit.comboCode, QStringLiteral("6"));
    edit.selection = -1;
    EXPECT_EQ(run(ValueKind::List, [&](QDialog& dialog) { ok(dialog); }), 0) << "nothing is chosen";
}

TEST_F(ValueDialogs, ATagIsDeletedAfterItsSafetyCopy) {
    const auto file = photo({"-IFD0:Artist=Ada", "-IFD0:Copyright=kept"});
    const std::string before = support::readBytes(file);
    tags::MetadataRow row;
    row.group = "IFD0";
    row.tag = "Artist";
    row.tagId = static_cast<int>(record(u"IFD0", u"Artist").id);
    DialogDeleteATag dialog(parts, form(), row, file, nullptr);
    EXPECT_EQ(at<QLabel>(dialog, ::edit::control::kQuestion).text(),
              QStringLiteral("Artist is going to be deleted."));
    dialog.reject();
    EXPECT_EQ(support::readBytes(file), before);
    dialog.accept();
    EXPECT_EQ(support::readBytes(file), before) << "the dialog asks; its job writes";
    expectDone(dialog);
    EXPECT_EQ(valueOf(file, "IFD0:Artist"), "");
    EXPECT_EQ(valueOf(file, "IFD0:Copyright"), "kept");
    EXPECT_EQ(support::readBytes(exiftool::safetyCopyPath(file, context.cachePath, {}, QDateTime())), before);
}

TEST_F(ValueDialogs, AGroupIsDeletedTagByTag) {
    const auto file =
        photo({"-XMP-dc:Title=t", "-XMP-dc:Subject=a", "-XMP-dc:Subject=b", "-IFD0:Artist=kept"});
    std::vector<tags::MetadataRow> rows(3);
    for (tags::MetadataRow& row : rows) row.group = "XMP-dc";
    rows[0].tag = "Title";
    rows[0].tagId = static_cast<int>(record(u"XMP-dc", u"Title").id);
    rows[1].tag = "Subject";
    rows[1].tagId = static_cast<int>(record(u"XMP-dc", u"Subject").id);
    rows[2].tag = "Something";
    DialogDeleteGroup_FromOneFile dialog(parts, form(), rows, file, nullptr);
    EXPECT_EQ(at<QLabel>(dialog, ::edit::control::kQuestion).text(),
              QStringLiteral("You are going to delete the XMP-dc group.\nPlease confirm."));
    EXPECT_EQ(at<QPlainTextEdit>(dialog, ::edit::control::kHelp).toPlainText(),
              QStringLiteral("Title\nSubject"));
    dialog.accept();
    expectDone(dialog);
    EXPECT_EQ(valueOf(file, "XMP-dc:All"), "");
    EXPECT_EQ(valueOf(file, "IFD0:Artist"), "kept");

    context.settings.exifTool.correctedCommands = false;
    const std::vector<TagAddress> all = addressesOf(parts, form(), rows);
    EXPECT_EQ(all.size(), 3u) << "as designed every row is a term";
    EXPECT_EQ(removeTagsOfFileCommand(context, form(), all, "/p/a.jpg").text(),
              "\"/usr/bin/exiftool\" -XMP-dc:Title= -XMP-dc:Subject= -XMP-dc:Something= -overwrite_original "
              "-charset filename=UTF8 \"/p/a.jpg\"");
}

TEST_F(ValueDialogs, AFileThatIsMarkedReadOnlyIsLeftAlone) {
    const auto file = photo({"-IFD0:Artist=Ada"});
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    const std::string before = support::readBytes(file);
    const support::UnprivilegedUser user(folder.path());
    const jobs::Job job = deleteTagsJob(form(), QString(), {{"IFD0", "Artist"}}, file);
    const exiftool::Outcomes outcomes = support::runHere(job, context, runner);
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes.front().kind, exiftool::OutcomeKind::Failed);
    EXPECT_THAT(outcomes.front().words, testing::HasSubstr("marked as read-only"));
    EXPECT_EQ(support::readBytes(file), before);
}
