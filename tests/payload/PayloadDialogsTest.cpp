#include "controls/HexView.h"
#include "controls/PictureView.h"
#include "payload/DisplayHexaDialog.h"
#include "payload/ExportDialogICC.h"
#include "payload/ExportDialogThumbnail.h"
#include "payload/PayloadFile.h"
#include "payload/ThumbnailOperations.h"
#include "support/RunHere.h"
#include "support/ToolStandIns.h"

#include "dialogs/Messages.h"
#include "jobs/OperationDialog.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace payload;
using enum exiftool::OutcomeKind;
using support::kindsOf;
using support::readBytes;
using support::writeBytes;
using tags::TagEditContext;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

namespace {

constexpr int kOutput = 924;
constexpr int kAsDump = 1008;
constexpr int kFacts = 81501;
constexpr int kSaveAs = 81502;
constexpr int kAsPicture = 81503;
constexpr int kReplace = 81505;
constexpr int kDelete = 81506;

class PayloadDialogsTest : public PayloadFile {
 protected:
    PayloadDialogsTest() {
        dialogs::setMessageAnswer([this](QWidget*, const dialogs::Message& message) {
            messages.push_back(message.text.toStdString());
            return answer;
        });
    }
    ~PayloadDialogsTest() override { dialogs::setMessageAnswer({}); }

    /// Types a name into the file dialog that comes up, and confirms.
    static void typeIntoNextFileDialog(const fs::path& path) {
        QTimer::singleShot(0, qApp, [path] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return typeIntoNextFileDialog(path);
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                ->setText(QString::fromStdString(path.string()));
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        });
    }

    /// Runs the dialog and presses this button when it is on the screen.
    static int runAndPress(dialogs::DarkModeDialogBase& dialog, int controlId) {
        QTimer::singleShot(0, &dialog, [&dialog, controlId] {
            dialog.control<QAbstractButton>(controlId)->click();
            if (dialog.isVisible()) dialog.reject();
        });
        return dialog.run();
    }

    static QString output(const DisplayHexaDialog& dialog) {
        return dialogs::findControl(dialog, kOutput)->property("text").toString();
    }

    static void decide(DisplayHexaDialog& dialog) {
        QSignalSpy spy(&dialog, &DisplayHexaDialog::PictureDecided);
        if (!dialog.isReadingPicture()) return;
        ASSERT_TRUE(spy.wait());
    }

    /// Carries out what the dialog has left.
    exiftool::Outcomes carryOut(jobs::JobSource& dialog) {
        return support::runHere(dialog.takeJob(), context, runner);
    }

    std::vector<std::string> messages;
    QMessageBox::StandardButton answer = QMessageBox::Yes;
};

}  // namespace

TEST_F(PayloadDialogsTest, ATextIsShownAsDumpAndAsText) {
    TagEditContext row = thumbnailRow(photo({}));
    row.title = "Artist";
    row.value = "First line\nsecond";
    DisplayHexaDialog dialog(parts, row, DisplayHexaDialog::kPlainTemplate, nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.findChild<QPlainTextEdit*>()->toPlainText(), "First line\nsecond") << "as a text first";
    dialog.control<QCheckBox>(kAsDump)->click();
    EXPECT_EQ(output(dialog).toStdString(),
              "00000000   46 69 72 73 74 20 6C 69   6E 65 0A 73 65 63 6F 6E    First line.secon\n"
              "00000010   64                                                   d\n"
              "(17 bytes)");
    dialog.control<QCheckBox>(kAsDump)->click();
    EXPECT_TRUE(dialog.findChild<QPlainTextEdit*>()->isVisibleTo(&dialog));
    EXPECT_EQ(dialog.control<QPushButton>(dialogs::kOkControl)->text(), "  OK");
    EXPECT_EQ(dialog.control<QPushButton>(kSaveAs)->text(), "  SaveAs...");
    EXPECT_EQ(runAndPress(dialog, dialogs::kOkControl), 0);
}

TEST_F(PayloadDialogsTest, TheDesignedFormBeginsWithTheDumpAndFillsAShortLineWithFourBlanks) {
    context.settings.exifTool.correctedCommands = false;
    TagEditContext row = thumbnailRow(photo({}));
    row.value = "abc";
    DisplayHexaDialog dialog(parts, row, DisplayHexaDialog::kPlainTemplate, nullptr);
    const QString blanks(13 * 4, u' ');
    EXPECT_EQ(output(dialog), QStringLiteral("00000000   61 62 63 %1   abc\n(3 bytes)").arg(blanks));
    dialog.control<QCheckBox>(kAsDump)->click();
    EXPECT_EQ(output(dialog), "abc");
}

TEST_F(PayloadDialogsTest, AnUnreadableValueLeavesTheViewEmptyAndSaysWhy) {
    const TagEditContext row = thumbnailRow(photo({}));
    const fs::path noFolder = folder / "no such folder";
    for (const int form : {DisplayHexaDialog::kPlainTemplate, DisplayHexaDialog::kImageTemplate}) {
        for (const support::ToolStandIn& standIn : support::kToolStandIns) {
            support::useTool(context, folder / "tool", standIn.script);
            runner.setKeepWaiting([&](std::chrono::milliseconds) { return !standIn.hangs; });
            DisplayHexaDialog dialog(parts, row, form, nullptr);
            EXPECT_EQ(output(dialog), QString()) << standIn.what << ": no (0 bytes), which would be a value";
            EXPECT_THAT(dialog.control<QLabel>(kFacts)->text().toStdString(),
                        HasSubstr("could not be read: "))
                << standIn.what;
            EXPECT_FALSE(dialog.control<QPushButton>(kSaveAs)->isEnabled()) << standIn.what;
            if (form != DisplayHexaDialog::kImageTemplate) continue;
            for (const int offer : {kAsDump, kReplace, kDelete})
                EXPECT_TRUE(dialog.control<QWidget>(offer)->isHidden()) << offer << standIn.what;
        }
    }
    context.tempPath = noFolder;
    DisplayHexaDialog dialog(parts, row, DisplayHexaDialog::kImageTemplate, nullptr);
    EXPECT_EQ(output(dialog), QString());
    EXPECT_FALSE(dialog.control<QPushButton>(kSaveAs)->isEnabled());
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(PayloadDialogsTest, AValueThatCameInPartIsToldAndNoPicture) {
    const fs::path file = photoWithThumbnail("a.jpg");
    support::useTool(context, folder / "tool",
                     "head -c 500 '" + (folder / "first.jpg").string() + "'; kill -KILL $$\n");
    DisplayHexaDialog dialog(parts, thumbnailRow(file), DisplayHexaDialog::kImageTemplate, nullptr);
    dialog.show();
    EXPECT_FALSE(dialog.isReadingPicture());
    EXPECT_TRUE(output(dialog).startsWith("00000000   FF D8 FF E0"));
    EXPECT_TRUE(output(dialog).contains("(500 bytes)")) << output(dialog).right(80).toStdString();
    EXPECT_TRUE(dialog.findChild<controls::HexView*>()->isVisible());
    const std::string told = dialog.control<QLabel>(kFacts)->text().toStdString();
    EXPECT_THAT(told, HasSubstr("Only a part"));
    EXPECT_THAT(told, HasSubstr("signal 9"));
    EXPECT_FALSE(dialog.control<QPushButton>(kSaveAs)->isEnabled()) << "half a value is nothing to keep";
}

TEST_F(PayloadDialogsTest, AThumbnailIsShownAsPictureAndAsDump) {
    const fs::path file = photoWithThumbnail("\"a\" 100%.jpg");
    DisplayHexaDialog dialog(parts, thumbnailRow(file), DisplayHexaDialog::kImageTemplate, nullptr);
    dialog.show();
    decide(dialog);
    EXPECT_EQ(dialog.windowTitle(), "ThumbnailImage - 160 x 120 pixels");
    auto* view = dialog.findChild<controls::PictureView*>();
    EXPECT_TRUE(view->isVisible());
    EXPECT_GT(view->image().pixelColor(80, 60).red(), 200);
    EXPECT_FALSE(dialog.findChild<controls::HexView*>()->isVisible());
    dialog.control<QCheckBox>(kAsPicture)->click();
    EXPECT_TRUE(dialog.findChild<controls::HexView*>()->isVisible());
    EXPECT_TRUE(output(dialog).startsWith("00000000   FF D8 FF E0"));
}

TEST_F(PayloadDialogsTest, ABrokenPictureFallsBackToTheDump) {
    TagEditContext row = thumbnailRow(photo({}));
    row.value = QString::fromLatin1("\x31\x02") + QString(500, u'x');
    DisplayHexaDialog dialog(parts, row, DisplayHexaDialog::kImageTemplate, nullptr);
    dialog.show();
    decide(dialog);
    EXPECT_TRUE(dialog.findChild<controls::HexView*>()->isVisible());
    EXPECT_TRUE(output(dialog).startsWith("00000000   31 02 78"));
    EXPECT_TRUE(output(dialog).endsWith("(502 bytes)"));
    EXPECT_FALSE(dialog.control<QCheckBox>(kAsPicture)->isVisible());
    EXPECT_THAT(dialog.control<QLabel>(kFacts)->text().toStdString(), HasSubstr("cannot be shown"));
}

TEST_F(PayloadDialogsTest, APictureThatClaimsToBeHugeTakesNoMemory) {
    std::string bitmap(54, '\0');
    bitmap.replace(0, 2, "BM");
    bitmap[10] = 54;
    bitmap[14] = 40;
    for (const std::size_t at : {18U, 22U}) bitmap.replace(at, 4, "\x60\xEA\0\0", 4);
    bitmap[26] = 1;
    bitmap[28] = 24;
    const PictureRead claimed = readPicture({reinterpret_cast<const unsigned char*>(bitmap.data()), 54});
    EXPECT_TRUE(claimed.image.isNull());
    EXPECT_NE(claimed.reason, QString());

    const std::string jpeg = jpegBytes(Qt::green, {7000, 5000});
    const PictureRead large = readPicture({reinterpret_cast<const unsigned char*>(jpeg.data()), jpeg.size()});
    EXPECT_EQ(large.size, QSize(7000, 5000));
    ASSERT_FALSE(large.image.isNull());
    EXPECT_LT(large.image.width(), 7000);
}

TEST_F(PayloadDialogsTest, SavingKeepsTheBytes) {
    const fs::path file = photoWithThumbnail("a.jpg");
    DisplayHexaDialog dialog(parts, thumbnailRow(file), DisplayHexaDialog::kImageTemplate, nullptr);
    dialog.show();
    decide(dialog);
    typeIntoNextFileDialog(folder / "saved");
    dialog.control<QPushButton>(kSaveAs)->click();
    EXPECT_EQ(readBytes(folder / "saved.jpg"), readBytes(folder / "first.jpg"));
}

TEST_F(PayloadDialogsTest, ThumbnailsAreReplacedAndDeletedThereAlone) {
    const fs::path file = photoWithThumbnail("a.jpg");
    const std::string before = readBytes(file);
    const fs::path picture = smallJpeg("new 100%f.jpg", Qt::green);
    {
        DisplayHexaDialog dialog(parts, thumbnailRow(file), DisplayHexaDialog::kImageTemplate, nullptr);
        typeIntoNextFileDialog(picture);
        EXPECT_EQ(runAndPress(dialog, kReplace), 1);
        EXPECT_EQ(readBytes(file), before) << "the dialog writes nothing itself";
        EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    }
    EXPECT_EQ(thumbnailOf(file), readBytes(picture));
    EXPECT_EQ(copyOf(file), before);
    {
        DisplayHexaDialog dialog(parts, thumbnailRow(file), DisplayHexaDialog::kImageTemplate, nullptr);
        answer = QMessageBox::No;
        EXPECT_EQ(runAndPress(dialog, kDelete), 0);
        EXPECT_THAT(dialog.takeJob().files, IsEmpty());
        EXPECT_NE(thumbnailOf(file), "");
        answer = QMessageBox::Yes;
        EXPECT_EQ(runAndPress(dialog, kDelete), 1);
        EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    }
    EXPECT_EQ(thumbnailOf(file), "");
    DisplayHexaDialog plain(parts, thumbnailRow(file), DisplayHexaDialog::kPlainTemplate, nullptr);
    EXPECT_EQ(dialogs::findControl(plain, kReplace), nullptr);
    TagEditContext row = thumbnailRow(file);
    row.tagId = static_cast<int>(record(u"Photoshop", u"PhotoshopThumbnail").id);
    DisplayHexaDialog other(parts, row, DisplayHexaDialog::kImageTemplate, nullptr);
    other.show();
    EXPECT_FALSE(dialogs::findControl(other, kReplace)->isVisible());
}

TEST_F(PayloadDialogsTest, NoPictureIsTakenThatIsNone) {
    const fs::path file = photoWithThumbnail("a.jpg");
    const std::string before = readBytes(file);
    writeBytes(folder / "text.jpg", "no picture");
    DisplayHexaDialog dialog(parts, thumbnailRow(file), DisplayHexaDialog::kImageTemplate, nullptr);
    typeIntoNextFileDialog(folder / "text.jpg");
    EXPECT_EQ(runAndPress(dialog, kReplace), 0);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_THAT(messages[0], HasSubstr("text.jpg"));
    EXPECT_EQ(readBytes(file), before);
}

TEST_F(PayloadDialogsTest, OneThumbnailForManyFiles) {
    const std::vector<fs::path> files = {photoWithThumbnail("a.jpg"), photo({}, "$(touch owned).jpg"),
                                         folder / "photos/missing.jpg", photo({}, "c.jpg")};
    const fs::path picture = smallJpeg("new 50%d.jpg", Qt::green);
    const std::string before = readBytes(files[0]);
    jobs::OperationDialog dialog(parts, payload::operations().front(), files, nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.windowTitle(), "Embed a thumbnail in 4 files");
    EXPECT_EQ(runAndPress(dialog, dialogs::kOkControl), 0);
    EXPECT_EQ(messages.size(), 1u);
    dialog.control<QLineEdit>(1321)->setText(QString::fromStdString(picture.string()));
    EXPECT_EQ(runAndPress(dialog, dialogs::kOkControl), 1);
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done, Done, Failed, Done));
    for (const std::size_t at : {0U, 1U, 3U}) EXPECT_EQ(thumbnailOf(files[at]), readBytes(picture)) << at;
    EXPECT_EQ(copyOf(files[0]), before);
    EXPECT_THAT(report(), HasSubstr("missing.jpg"));
}

TEST_F(PayloadDialogsTest, TheDesignedRunReplacesTheReportOfTheLastFile) {
    context.settings.exifTool.correctedCommands = false;
    const std::vector<fs::path> files = {folder / "photos/missing.jpg", photo({}, "c.jpg")};
    jobs::OperationDialog dialog(parts, payload::operations().front(), files, nullptr);
    dialog.control<QLineEdit>(1321)->setText(
        QString::fromStdString(smallJpeg("new.jpg", Qt::green).string()));
    EXPECT_EQ(runAndPress(dialog, dialogs::kOkControl), 1);
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Failed, Done));
    EXPECT_EQ(thumbnailOf(files[1]), readBytes(folder / "new.jpg"));
    EXPECT_EQ(report(), "");
}

TEST_F(PayloadDialogsTest, ThumbnailsAreExportedAndWhatIsMissingIsTold) {
    fs::create_directory(folder / "to");
    const std::vector<fs::path> files = {photoWithThumbnail("a.jpg"), photo({}, "b %1.jpg")};
    ExportDialogThumbnail dialog(parts, files, nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.windowTitle(), "Export the thumbnails of 2 files");
    for (const PayloadExport& payload : thumbnailExports())
        EXPECT_EQ(dialog.control<QCheckBox>(payload.box)->isChecked(), payload.tag == "ThumbnailImage");
    dialog.control<QLineEdit>(955)->setText("/no such folder");
    EXPECT_EQ(runAndPress(dialog, dialogs::kOkControl), 0);
    EXPECT_EQ(messages.size(), 1u);
    dialog.control<QLineEdit>(955)->setText(QString::fromStdString((folder / "to").string()));
    EXPECT_EQ(runAndPress(dialog, dialogs::kOkControl), 1);
    EXPECT_TRUE(fs::is_empty(folder / "to")) << "the dialog writes nothing itself";
    const jobs::Job job = dialog.takeJob();
    EXPECT_EQ(job.title, "Exporting ThumbnailImage");
    const exiftool::Outcomes outcomes = support::runHere(job, context, runner);
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Done, Unchanged));
    EXPECT_EQ(outcomes[1].words, "Holds no ThumbnailImage");
    EXPECT_EQ(readBytes(folder / "to/a_ThumbnailImage.jpg"), readBytes(folder / "first.jpg"));
    EXPECT_FALSE(fs::exists(folder / "to/b %1_ThumbnailImage.jpg"));
    EXPECT_EQ(context.settings.batch.defaultSavePath.toStdString(), (folder / "to").string());

    answer = QMessageBox::Cancel;
    ExportDialogThumbnail again(parts, files, nullptr);
    EXPECT_EQ(again.control<QLineEdit>(955)->text().toStdString(), (folder / "to").string());
    EXPECT_EQ(runAndPress(again, dialogs::kOkControl), 0);
    EXPECT_THAT(messages.back(), HasSubstr("a_ThumbnailImage.jpg"));
    again.control<QCheckBox>(1081)->setChecked(false);
    EXPECT_EQ(runAndPress(again, dialogs::kOkControl), 0);
    EXPECT_EQ(messages.size(), 3u);
}

TEST_F(PayloadDialogsTest, ProfilesAreExported) {
    fs::create_directory(folder / "to");
    const fs::path file = photoWithThumbnail("a.jpg", true);
    ExportDialogICC dialog(parts, {file}, nullptr);
    EXPECT_EQ(dialog.windowTitle(), "Export the ICC profile of 1 file");
    dialog.control<QLineEdit>(955)->setText(QString::fromStdString((folder / "to").string()));
    EXPECT_EQ(runAndPress(dialog, dialogs::kOkControl), 1);
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    EXPECT_EQ(readBytes(folder / "to/a.icc"), support::ExifTool({"-b", "-icc_profile", file.string()}));
    EXPECT_EQ(report(), "");
}
