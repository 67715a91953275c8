#include "dialogs/Messages.h"
#include "edit/ValueEditor.h"
#include "jobs/JobSource.h"
#include "support/EditedFile.h"
#include "support/RunHere.h"
#include "support/ToolStandIns.h"
#include "taglists/DialogAddATag_ToOneFile.h"
#include "taglists/DialogAddTagsMain.h"
#include "taglists/DialogModifMain.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

using namespace taglists;
using enum exiftool::OutcomeKind;
using support::kindsOf;
using testing::ElementsAre;
namespace fs = std::filesystem;

namespace {

class TagValuesDialogTest : public EditedFile {
 protected:
    TagValuesDialogTest() {
        parts.values = &values_;
        dialogs::setMessageAnswer([this](QWidget*, const dialogs::Message& message) {
            messages << message.text;
            return QMessageBox::Ok;
        });
    }
    ~TagValuesDialogTest() override { dialogs::setMessageAnswer({}); }

    static std::size_t rowOf(TagValuesDialog& dialog, const char* group, const char* name) {
        const TagRows& rows = dialog.list().rows();
        for (std::size_t at = 0; at < rows.size(); ++at)
            if (rows[at].group.compare(group, Qt::CaseInsensitive) == 0 && rows[at].name == name) return at;
        ADD_FAILURE() << group << ':' << name;
        return 0;
    }
    /// Does something in the dialog that opens next, whenever it does.
    template <typename Call>
    static void inNextDialog(QWidget& below, Call call) {
        auto* timer = new QTimer(&below);
        QObject::connect(timer, &QTimer::timeout, &below, [timer, &below, call] {
            QWidget* top = QApplication::activeModalWidget();
            if (top == nullptr || top == &below) return;
            timer->deleteLater();
            timer->stop();
            call(*static_cast<dialogs::DarkModeDialogBase*>(top));
        });
        timer->start(5);
    }
    /// Clicks the value of the row and answers the dialog that opens.
    template <typename Call>
    void editByMouse(TagValuesDialog& dialog, std::size_t row, Call call) {
        TagListModel& model = dialog.list().model();
        const QModelIndex cell = model.index(model.shownRowOf(row), model.columnOf(TagColumn::Value));
        dialog.list().view().scrollTo(cell);
        inNextDialog(dialog, call);
        QTest::mouseClick(dialog.list().view().viewport(), Qt::LeftButton, {},
                          dialog.list().view().visualRect(cell).center());
    }
    static void typeText(dialogs::DarkModeDialogBase& dialog, const QString& text) {
        auto* field = dialog.control<QPlainTextEdit>(1694);
        field->selectAll();
        field->insertPlainText(text);
        dialog.accept();
    }
    static void show(QDialog& dialog) {
        dialog.show();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    static QString status(TagValuesDialog& dialog, int part) {
        return dialog.control<QLabel>(part == 0 ? 80523 : 80524)->text();
    }

    /// OK, and what it leaves is carried out.
    exiftool::Outcomes accept(TagValuesDialog& dialog) {
        dialog.accept();
        EXPECT_EQ(dialog.QDialog::result(), QDialog::Accepted);
        return support::runHere(dialog.takeJob(), context, runner);
    }

    QStringList messages;

    edit::ValueEditor values_{parts};
};

}  // namespace

TEST_F(TagValuesDialogTest, OneFileIsReadEditedAndWritten) {
    const fs::path file = photo({"-IFD0:Make=Acme", "-IFD0:Artist=Somebody", "-IFD0:Orientation#=6"});
    DialogModifMain dialog(parts, 22, {file}, nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.windowTitle(), "Modify EXIF tags of a.jpg");
    EXPECT_EQ(status(dialog, 0).toStdString(), file.string());
    EXPECT_EQ(dialog.control<QLabel>(408)->text(), "File with tags:");
    EXPECT_FALSE(dialog.control<QLineEdit>(409)->isHidden());
    show(dialog);
    EXPECT_TRUE(dialog.list().filter().hasFocus());

    const std::size_t make = rowOf(dialog, "IFD0", "Make");
    EXPECT_EQ(dialog.list().rows()[make].value, "Acme");
    editByMouse(dialog, make, [](dialogs::DarkModeDialogBase& editor) {
        EXPECT_EQ(editor.windowTitle(), "Modify: Make");
        EXPECT_EQ(editor.control<QPlainTextEdit>(1694)->toPlainText(), "Acme");
        typeText(editor, "New \"one\"");
    });
    EXPECT_EQ(dialog.list().rows()[make].value, "New \"one\"");
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "Acme") << "nothing is written before OK";

    editByMouse(dialog, rowOf(dialog, "IFD0", "Orientation"), [](dialogs::DarkModeDialogBase& editor) {
        auto* choice = editor.control<QComboBox>(1699);
        EXPECT_EQ(choice->currentText(), "Rotate 90 CW");
        choice->setCurrentIndex(choice->findText("Rotate 180"));
        editor.accept();
    });
    dialog.accept();
    EXPECT_EQ(dialog.QDialog::result(), QDialog::Accepted);
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "Acme") << "the dialog writes nothing itself";
    const jobs::Job job = dialog.takeJob();
    EXPECT_EQ(job.title, dialog.windowTitle());
    EXPECT_THAT(kindsOf(support::runHere(job, context, runner)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "New \"one\"");
    EXPECT_EQ(support::ExifTool({"-s3", "-n", "-IFD0:Orientation", file.string()}), "3\n");
    EXPECT_EQ(valueOf(file, "IFD0:Artist"), "Somebody");
}

TEST_F(TagValuesDialogTest, ACancelledEditorAndAnUnchangedValueLeaveTheRow) {
    const fs::path file = photo({"-IFD0:Make=Acme"});
    DialogModifMain dialog(parts, 22, {file}, nullptr);
    show(dialog);
    const std::size_t make = rowOf(dialog, "IFD0", "Make");
    editByMouse(dialog, make, [](dialogs::DarkModeDialogBase& editor) { editor.reject(); });
    editByMouse(dialog, make, [](dialogs::DarkModeDialogBase& editor) { editor.accept(); });
    EXPECT_EQ(changedCount(dialog.list().rows()), 0U);
    const std::string before = support::readBytes(file);
    EXPECT_THAT(accept(dialog), testing::IsEmpty());
    EXPECT_EQ(support::readBytes(file), before);
}

TEST_F(TagValuesDialogTest, AListKeepsItsEntriesWhenOneIsAdded) {
    const fs::path file = photo({"-XMP-dc:Subject=one, and a half", "-XMP-dc:Subject=two"});
    DialogModifMain dialog(parts, 35, {file}, nullptr);
    show(dialog);
    const std::size_t subject = rowOf(dialog, "XMP-dc", "Subject");
    editByMouse(dialog, subject, [](dialogs::DarkModeDialogBase& editor) {
        EXPECT_EQ(editor.control<QPlainTextEdit>(1694)->toPlainText(), "one, and a half\ntwo");
        typeText(editor, "one, and a half\ntwo\nthree");
    });
    EXPECT_EQ(shownValue(dialog.list().rows()[subject]), "one, and a half, two, three");
    EXPECT_THAT(kindsOf(accept(dialog)), ElementsAre(Done));
    EXPECT_EQ(support::ExifTool({"-s3", "-sep", "|", "-XMP-dc:Subject", file.string()}),
              "one, and a half|two|three\n");
}

TEST_F(TagValuesDialogTest, SeveralFilesAreABatch) {
    const fs::path first = photo({"-IFD0:Make=Acme"}, "first.jpg");
    const fs::path stranger = folder / "photos/notes.unknown";
    support::writeBytes(stranger, "text");
    const fs::path last = photo({"-IFD0:Make=Other"}, "last.jpg");
    DialogModifMain dialog(parts, 22, {first, stranger, last}, nullptr);
    EXPECT_EQ(dialog.windowTitle(), "Modify EXIF tags of 3 files");
    EXPECT_EQ(status(dialog, 0), "Batch Mode");
    show(dialog);
    const std::size_t artist = rowOf(dialog, "IFD0", "Artist");
    EXPECT_EQ(dialog.list().rows()[rowOf(dialog, "IFD0", "Make")].value, "");
    editByMouse(dialog, artist, [](dialogs::DarkModeDialogBase& editor) { typeText(editor, "Everybody"); });
    const exiftool::Outcomes outcomes = accept(dialog);
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Done, Done, Failed));
    EXPECT_EQ(outcomes.back().file, stranger);
    EXPECT_EQ(messages, QStringList());
    EXPECT_EQ(valueOf(first, "IFD0:Artist"), "Everybody");
    EXPECT_EQ(valueOf(last, "IFD0:Artist"), "Everybody");
    EXPECT_EQ(valueOf(last, "IFD0:Make"), "Other");
    EXPECT_EQ(status(dialog, 1), "");
}

TEST_F(TagValuesDialogTest, TheDesignedListIsEmpty) {
    context.settings.exifTool.correctedCommands = false;
    const fs::path file = photo({"-IFD0:Make=Acme"});
    for (const int command : {22, 31, 35}) {
        const DialogModifMain dialog(parts, command, {file}, nullptr);
        EXPECT_TRUE(const_cast<DialogModifMain&>(dialog).list().rows().empty());
    }
}

TEST_F(TagValuesDialogTest, AFileThatCannotBeReadLeavesListAndStripEmpty) {
    context.exifToolPath = folder / "no tool";
    DialogModifMain dialog(parts, 22, {photo({})}, nullptr);
    EXPECT_TRUE(dialog.list().rows().empty());
    EXPECT_TRUE(dialog.control<QLineEdit>(409)->isHidden());
}

TEST_F(TagValuesDialogTest, TheSizeIsRemembered) {
    context.settings.main.widthAddModify = 700;
    context.settings.main.heightAddModify = 520;
    DialogModifMain dialog(parts, 22, {photo({})}, nullptr);
    EXPECT_EQ(dialog.size(), QSize(700, 520));
    dialog.resize(760, 610);
    dialog.reject();
    EXPECT_EQ(context.settings.main.widthAddModify, 700);
    dialog.accept();
    EXPECT_EQ(context.settings.main.widthAddModify, 760);
    EXPECT_EQ(context.settings.main.heightAddModify, 610);
}

TEST_F(TagValuesDialogTest, AValuesFileFillsTheList) {
    const fs::path source =
        photo({"-IFD0:Make=Acme", "-IFD0:Orientation#=6", "-ExifIFD:ISO=200"}, "source.jpg");
    support::writeBytes(folder / "values.exif",
                        support::ExifTool({"-csv", "-IFD0:all", "-ExifIFD:ISO", source.string()}));
    const fs::path target = photo({"-IFD0:Artist=kept"}, "target.jpg");
    DialogModifMain dialog(parts, 22, {target}, nullptr);
    show(dialog);
    auto* path = dialog.control<QLineEdit>(409);
    path->setText(QString::fromStdString((folder / "values.exif").string()));
    path->setFocus();
    QTest::keyClick(path, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "Enter loads and does not write";
    EXPECT_EQ(dialog.list().rows()[rowOf(dialog, "IFD0", "Make")].value, "Acme");
    EXPECT_NE(status(dialog, 1).indexOf("values loaded"), -1);
    EXPECT_THAT(kindsOf(accept(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(target, "IFD0:Make"), "Acme");
    EXPECT_EQ(valueOf(target, "ExifIFD:ISO"), "200");
    EXPECT_EQ(support::ExifTool({"-s3", "-n", "-IFD0:Orientation", target.string()}), "6\n");
    EXPECT_EQ(valueOf(target, "IFD0:Artist"), "kept");
}

TEST_F(TagValuesDialogTest, AValuesFileBringsEveryCharacterAndNothingOfAFilesBuild) {
    const std::string odd =
        "\xC2\xA0 a\tb\xE2\x80\xA9"
        "c\r\nd \"e\", f\xC2\x85 ";
    const fs::path source =
        photo({"-XMP-dc:Description=" + odd, "-XMP-dc:Subject= one ", "-XMP-dc:Subject=two\n"}, "source.jpg");
    support::writeBytes(folder / "values.xmp",
                        support::ExifTool({"-csv", "-G1", "-XMP-dc:all", source.string()}));
    support::writeBytes(
        folder / "build.exif",
        "SourceFile,Compression,StripOffsets,IFD0:PhotometricInterpretation,Make,IFD0:Copyright\n"
        "a.tif,LZW,8,RGB,Acme,\"blanks at its end  \"\n");
    const fs::path target = photo({"-XMP-dc:Title=plain", "-XMP-dc:Title-de=kept", "-IFD0:Artist=kept"});
    const std::string build = support::ExifTool({"-S", "-IFD0:all", "-IFD1:all", target.string()});
    {
        DialogModifMain dialog(parts, 35, {target}, nullptr);
        show(dialog);
        dialog.loadValues(folder / "values.xmp");
        const std::size_t title = rowOf(dialog, "XMP-dc", "Title");
        editByMouse(dialog, title, [](dialogs::DarkModeDialogBase& editor) { typeText(editor, "new"); });
        EXPECT_THAT(kindsOf(accept(dialog)), ElementsAre(Done));
    }
    EXPECT_EQ(valueOf(target, "XMP-dc:Description"), odd);
    EXPECT_EQ(support::ExifTool({"-b", "-sep", "|", "-XMP-dc:Subject", target.string()}), " one |two\n");
    EXPECT_EQ(valueOf(target, "XMP-dc:Title") + valueOf(target, "XMP-dc:Title-de"), "newkept");
    DialogModifMain dialog(parts, 22, {target}, nullptr);
    show(dialog);
    dialog.loadValues(folder / "build.exif");
    const std::string told = messages.value(0).toStdString();
    EXPECT_THAT(told, testing::HasSubstr("IFD0:Compression\n"));
    EXPECT_THAT(told, testing::HasSubstr("IFD0:PhotometricInterpretation"));
    EXPECT_THAT(told, testing::HasSubstr("IFD0:Copyright"));
    EXPECT_THAT(kindsOf(accept(dialog)), ElementsAre(Done));
    EXPECT_EQ(support::ExifTool({"-S", "-IFD0:all", "-IFD1:all", target.string()}), "Make: Acme\n" + build);
}

TEST_F(TagValuesDialogTest, AFileWithoutValuesIsTold) {
    DialogModifMain dialog(parts, 22, {photo({})}, nullptr);
    support::writeBytes(folder / "none.exif", "one line");
    dialog.loadValues(folder / "none.exif");
    dialog.loadValues(folder / "missing.exif");
    EXPECT_EQ(messages.size(), 2);
    context.settings.exifTool.correctedCommands = false;
    DialogModifMain designed(parts, 22, {photo({})}, nullptr);
    designed.loadValues(folder / "none.exif");
    EXPECT_EQ(messages.size(), 2);
    // An operation has one form, that of its beginning.
    dialog.loadValues(folder / "none.exif");
    EXPECT_EQ(messages.size(), 3);
}

TEST_F(TagValuesDialogTest, TagsOfACommandsGroupAreAdded) {
    const fs::path file = photo({"-XMP-dc:Title=Old"});
    DialogAddTagsMain dialog(parts, 75, {file}, nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.templateNumber(), 8);
    EXPECT_EQ(dialog.windowTitle(), "Add XMP-dc tags to a.jpg");
    show(dialog);
    EXPECT_EQ(dialog.list().rows()[rowOf(dialog, "XMP-dc", "Title")].value, "Old");
    editByMouse(dialog, rowOf(dialog, "XMP-dc", "Source"),
                [](dialogs::DarkModeDialogBase& editor) { typeText(editor, "Here"); });
    EXPECT_THAT(kindsOf(accept(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "XMP-dc:Source"), "Here");
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "Old");
}

TEST_F(TagValuesDialogTest, AWriteThatWasNoneIsNotToldAsOne) {
    const fs::path file = photo({});
    DialogAddTagsMain dialog(parts, 23, {file}, nullptr);
    dialog.list().model().setValue(rowOf(dialog, "IFD0", "Make"), {.value = "Acme"});
    context.exifToolPath = folder / "no tool";
    EXPECT_THAT(kindsOf(accept(dialog)), ElementsAre(NotStarted));
}

TEST_F(TagValuesDialogTest, TagsOfTheShownGroupAreAdded) {
    const fs::path file = photo({"-XMP-lr:HierarchicalSubject=a|b"});
    DialogAddATag_ToOneFile dialog(parts, "XMP_lr", file, nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.list().rows()[rowOf(dialog, "XMP-lr", "HierarchicalSubject")].value, "a|b");
    dialog.list().model().setValue(rowOf(dialog, "XMP-lr", "WeightedFlatSubject"), {.value = "x"});
    EXPECT_THAT(kindsOf(accept(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "XMP-lr:WeightedFlatSubject"), "x");
    EXPECT_EQ(valueOf(file, "XMP-lr:HierarchicalSubject"), "a|b");
}

TEST_F(TagValuesDialogTest, ByTheKeyboardAlone) {
    const fs::path file = photo({"-IFD0:Make=Acme"});
    DialogModifMain dialog(parts, 22, {file}, nullptr);
    show(dialog);
    QTest::keyClicks(&dialog.list().filter(), "ifd0 make");
    QTest::keyClick(&dialog.list().filter(), Qt::Key_Down);
    ASSERT_GT(dialog.list().model().rowCount(), 0);
    inNextDialog(dialog, [](dialogs::DarkModeDialogBase& editor) { typeText(editor, "Typed"); });
    QTest::keyClick(&dialog.list().view(), Qt::Key_Return);
    EXPECT_EQ(changedCount(dialog.list().rows()), 1U);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(valueOf(file, "IFD0:Make"), "Acme");
}
