#include "dialogs/Messages.h"
#include "jobs/OperationDialog.h"
#include "taglists/DialogRemoveTags.h"
#include "taglists/RemovalOperations.h"
#include "taglists/RemovalParts.h"
#include "taglists/RemovalTexts.h"
#include "taglists/RemoveDialogTypes.h"
#include "taglists/TagList.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace taglists;
using enum exiftool::OutcomeKind;
using support::kindsOf;
using support::readBytes;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

namespace {

/// Dialogs are used as a user does, but not shown modally; messages are noted and answered.
class RemovalDialogs : public testing::Test, public RemovalParts {
 protected:
    void SetUp() override {
        ASSERT_TRUE(language.valid());
        dialogs::setMessageAnswer([this](QWidget*, const dialogs::Message& message) {
            messages.push_back(message.text.toStdString());
            icons.push_back(static_cast<int>(message.icon));
            EXPECT_EQ(message.title, QStringLiteral("Tagwright"));
            return answer;
        });
    }
    void TearDown() override { dialogs::setMessageAnswer({}); }

    static void press(const dialogs::DarkModeDialogBase& dialog, int controlId) {
        auto* button = dialog.control<QAbstractButton>(controlId);
        ASSERT_NE(button, nullptr) << controlId;
        button->click();
    }

    static TagList& listOf(const QDialog& dialog) { return *dialog.findChild<TagList*>(); }

    static void tick(const QDialog& dialog, const QString& name) {
        TagListModel& model = listOf(dialog).model();
        for (std::size_t row = 0; row < model.rows().size(); ++row) {
            if (model.rows()[row].name == name || model.rows()[row].group == name) model.setTicked(row, true);
        }
    }

    static std::vector<std::string> namesOf(const QDialog& dialog) {
        std::vector<std::string> names;
        for (const TagRow& row : listOf(dialog).rows())
            names.push_back((row.group + u':' + row.name).toStdString());
        return names;
    }

    std::vector<std::string> messages;
    std::vector<int> icons;
    QMessageBox::StandardButton answer = QMessageBox::Yes;
};

constexpr int kTickAll = 81101;
constexpr int kTickNone = 81102;

}  // namespace

TEST_F(RemovalDialogs, TheTitlesSayWhatAndOfHowManyFiles) {
    const std::vector<fs::path> one = {makePhoto("a.jpg")};
    const std::vector<fs::path> two = {one[0], makePhoto("b.jpg")};
    EXPECT_EQ(DialogRemoveTags(parts, two, nullptr).windowTitle(),
              QStringLiteral("Remove tags from 2 files"));
    EXPECT_EQ(RemoveDialogTypes(parts, one, nullptr).windowTitle(),
              QStringLiteral("Remove groups from 1 file"));
    EXPECT_EQ(jobs::OperationDialog(parts, operationOf(176), two, nullptr).windowTitle(),
              QStringLiteral("Delete the metadata of 2 files"));
    EXPECT_EQ(jobs::OperationDialog(parts, operationOf(10062), two, nullptr).windowTitle(),
              QStringLiteral("Copy tags to 2 files"));
    EXPECT_EQ(DialogRemoveATag_FromOneFile(parts, one[0], QStringLiteral("IPTC"), nullptr).windowTitle(),
              QStringLiteral("Remove tags of the group IPTC"));
}

TEST_F(RemovalDialogs, TagsOfASelectionAreListedWithTheirHoldersAndRemoved) {
    const fs::path a = makePhoto("a.jpg");
    const fs::path b = makePhoto("b.jpg");
    support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=", b.string()});
    DialogRemoveTags dialog(parts, {a, b}, nullptr);
    EXPECT_THAT(namesOf(dialog), testing::IsSupersetOf({"XMP-dc:Title", "IFD0:Artist", "IPTC:City"}));
    EXPECT_THAT(namesOf(dialog), testing::Not(testing::Contains("File:FileType")));
    for (const TagRow& row : listOf(dialog).rows()) {
        EXPECT_EQ(row.value, row.name == QStringLiteral("Title") ? QStringLiteral("in 1 of 2 files")
                                                                 : QStringLiteral("in 2 of 2 files"));
    }
    press(dialog, dialogs::kOkControl);
    EXPECT_THAT(messages, ElementsAre("Please select at least one tag."));
    EXPECT_THAT(icons, ElementsAre(48));
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_THAT(dialog.takeJob().files, IsEmpty());

    tick(dialog, QStringLiteral("Title"));
    tick(dialog, QStringLiteral("City"));
    press(dialog, dialogs::kOkControl);
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_EQ(valueOf(a, "IPTC:City"), "Town") << "the dialog writes nothing itself";
    const jobs::Job job = dialog.takeJob();
    EXPECT_EQ(job.title, QStringLiteral("Remove tags from 2 files"));
    EXPECT_THAT(kindsOf(carryOut(job)), ElementsAre(Done, Done));
    EXPECT_EQ(valueOf(a, "XMP-dc:Title") + valueOf(a, "IPTC:City") + valueOf(b, "IPTC:City"), "");
    EXPECT_EQ(valueOf(b, "IFD0:Artist"), "Somebody");
}

TEST_F(RemovalDialogs, ATextGoesAloneUnlessItsTranslationsAreTickedToo) {
    for (const bool both : {false, true}) {
        const fs::path file = makePhoto(both ? "both.jpg" : "alone.jpg");
        support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title-de=Ein Titel", file.string()});
        DialogRemoveTags dialog(parts, {file}, nullptr);
        tick(dialog, QStringLiteral("Title"));
        if (both) tick(dialog, QStringLiteral("Title-de"));
        dialog.accept();
        EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
        EXPECT_EQ(support::ExifTool({"-a", "-s", "-XMP-dc:Title*", file.string()}).find("A title"),
                  std::string::npos);
        EXPECT_EQ(valueOf(file, "XMP-dc:Title-de"), both ? "" : "Ein Titel");
    }
}

TEST_F(RemovalDialogs, TheListIsFilteredTickedAndUsedByKeyboard) {
    const fs::path file = makePhoto("a.jpg");
    DialogRemoveTags dialog(parts, {file}, nullptr);
    dialog.show();
    TagList& list = listOf(dialog);
    EXPECT_EQ(dialog.focusWidget(), &list.filter());
    QTest::keyClicks(&list.filter(), QStringLiteral("iptc"));
    QTest::keyClick(&dialog, Qt::Key_A, Qt::AltModifier);
    press(dialog, kTickAll);
    const TagRows ticked = list.tickedRows();
    EXPECT_FALSE(ticked.empty());
    for (const TagRow& row : ticked) EXPECT_EQ(row.group, QStringLiteral("IPTC"));
    const auto* count = qobject_cast<QLabel*>(dialogs::findControl(dialog, TagList::kCountControl));
    EXPECT_THAT(count->text().toStdString(), HasSubstr(std::to_string(ticked.size()) + " ticked"));
    press(dialog, kTickNone);
    EXPECT_TRUE(list.tickedRows().empty());

    QTest::keyClick(&list.filter(), Qt::Key_Down);
    QTest::keyClick(&list.view(), Qt::Key_Space);
    ASSERT_EQ(list.tickedRows().size(), 1u);
    const TagRow gone = list.tickedRows().front();
    QTest::keyClick(&list.view(), Qt::Key_Delete);
    EXPECT_FALSE(list.tickedRows().front().changed) << "values are only shown here";
    EXPECT_EQ(list.tickedRows().front().value, gone.value);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, (gone.group + u':' + gone.name).toStdString()), "");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(RemovalDialogs, EscapeRemovesNothing) {
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    RemoveDialogTypes types(parts, {file}, nullptr);
    DialogRemoveTags tags(parts, {file}, nullptr);
    jobs::OperationDialog all(parts, operationOf(176), {file}, nullptr);
    jobs::OperationDialog copy(parts, operationOf(10065), {file}, nullptr);
    for (QDialog* dialog : std::initializer_list<QDialog*>{&types, &tags, &all, &copy}) {
        dialog->show();
        QTest::keyClick(dialog, Qt::Key_Escape);
        EXPECT_EQ(dialog->result(), 0);
    }
    for (jobs::JobSource* dialog : std::initializer_list<jobs::JobSource*>{&types, &tags, &all, &copy})
        EXPECT_THAT(dialog->takeJob().files, IsEmpty());
    EXPECT_EQ(readBytes(file), before);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(RemovalDialogs, TheShownFileOffersTheTagsOfItsGroup) {
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    DialogRemoveATag_FromOneFile dialog(parts, file, QStringLiteral("XMP-dc"), nullptr);
    EXPECT_THAT(namesOf(dialog), testing::UnorderedElementsAre("XMP-dc:Creator", "XMP-dc:Title"));
    EXPECT_EQ(listOf(dialog).rows()[0].value, QStringLiteral("Somebody"));
    tick(dialog, QStringLiteral("Title"));
    press(dialog, dialogs::kOkControl);
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "");
    EXPECT_EQ(copyOf(file), before);

    DialogRemoveATag_FromOneFile whole(parts, file, {}, nullptr);
    EXPECT_THAT(namesOf(whole), testing::IsSupersetOf({"XMP-dc:Creator", "IFD0:Make", "IPTC:City"}));
    DialogRemoveATag_FromOneFile nothing(parts, file, QString(200, u'x'), nullptr);
    EXPECT_TRUE(listOf(nothing).rows().empty());
    EXPECT_TRUE(nothing.windowTitle().endsWith(QString(80, u'x')));
    EXPECT_FALSE(nothing.windowTitle().contains(QString(81, u'x')));
}

TEST_F(RemovalDialogs, AFileOfNoKnownKindIsTold) {
    const fs::path file = makePhoto("a.nokind");
    const std::string before = readBytes(file);
    DialogRemoveTags dialog(parts, {file}, nullptr);
    tick(dialog, QStringLiteral("Title"));
    press(dialog, dialogs::kOkControl);
    EXPECT_THAT(carryOut(dialog),
                ElementsAre(exiftool::Outcome{file, Failed, file.string() + " cannot be modified"}));
    EXPECT_EQ(readBytes(file), before);
}

TEST_F(RemovalDialogs, GroupsAreRemovedAfterAQuestion) {
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    RemoveDialogTypes dialog(parts, {file}, nullptr);
    press(dialog, dialogs::kOkControl);
    EXPECT_THAT(messages, ElementsAre("Please select at least of tag type!"));
    EXPECT_EQ(dialog.result(), 0);
    messages.clear();
    press(dialog, 81104);
    EXPECT_THAT(messages, ElementsAre(HasSubstr("In a JPEG, IPTC lies within Photoshop")));
    messages.clear();
    icons.pop_back();

    tick(dialog, QStringLiteral("XMP-dc"));
    answer = QMessageBox::No;
    dialog.setResult(5);
    press(dialog, dialogs::kOkControl);
    EXPECT_THAT(messages, ElementsAre("Please confirm the deletion of the selected tags."));
    EXPECT_EQ(dialog.result(), 0) << "no ends the dialog";
    EXPECT_EQ(readBytes(file), before);
    messages.clear();

    answer = QMessageBox::Yes;
    press(dialog, dialogs::kOkControl);
    EXPECT_THAT(messages, ElementsAre("Please confirm the deletion of the selected tags."));
    EXPECT_THAT(icons, ElementsAre(48, 48, 48));
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_EQ(readBytes(file), before) << "the dialog writes nothing itself";
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "XMP-dc:All"), "");
    EXPECT_EQ(valueOf(file, "IPTC:City"), "Town");
    EXPECT_EQ(copyOf(file), before);
}

TEST_F(RemovalDialogs, AListThatCannotBeWrittenEndsTheGroupsJobWithoutSuccess) {
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    RemoveDialogTypes dialog(parts, {file}, nullptr);
    context.tempPath = folder / "no";
    tick(dialog, QStringLiteral("EXIF"));
    press(dialog, dialogs::kOkControl);
    const exiftool::Outcomes outcomes = carryOut(dialog);
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(NotStarted));
    EXPECT_THAT(typesRemovedText(language, outcomes, {}).toStdString(), HasSubstr("could not be carried"));
    EXPECT_EQ(readBytes(file), before);
}

TEST_F(RemovalDialogs, DeleteAllKeepsTwoSettingsOfItsOwn) {
    const fs::path file = makePhoto("a.jpg");
    context.settings.deleteAll.safetyCopy = false;
    jobs::OperationDialog dialog(parts, operationOf(176), {file}, nullptr);
    EXPECT_TRUE(dialog.control<QAbstractButton>(1930)->isChecked());
    EXPECT_FALSE(dialog.control<QAbstractButton>(1089)->isChecked());
    EXPECT_TRUE(dialog.control<QAbstractButton>(1678)->isChecked());
    EXPECT_FALSE(dialog.control<QAbstractButton>(1008)->isEnabled());
    press(dialog, 1931);
    EXPECT_TRUE(dialog.control<QAbstractButton>(1008)->isEnabled());
    press(dialog, dialogs::kOkControl);
    EXPECT_THAT(messages, ElementsAre("Please select at least one tag."));
    EXPECT_EQ(dialog.result(), 0);
    press(dialog, 1009);
    press(dialog, 1678);
    press(dialog, dialogs::kOkControl);
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_FALSE(context.settings.deleteAll.safetyCopy);
    EXPECT_FALSE(context.settings.deleteAll.keepDate);
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "IPTC:All"), "");
    EXPECT_EQ(valueOf(file, "EXIF:Artist"), "Somebody");
    EXPECT_FALSE(fs::exists(context.cachePath / "sav"));
}

TEST_F(RemovalDialogs, TheDesignedBoxesOfDeleteAllServeTwice) {
    context.settings.exifTool.correctedCommands = false;
    const fs::path file = makePhoto("a.jpg");
    jobs::OperationDialog dialog(parts, operationOf(176), {file}, nullptr);
    EXPECT_TRUE(dialog.control<QAbstractButton>(1089)->isChecked());
    EXPECT_FALSE(dialog.control<QAbstractButton>(1678)->isChecked());
    press(dialog, 1009);
    press(dialog, dialogs::kOkControl);
    EXPECT_FALSE(context.settings.deleteAll.boxOfExif);
    EXPECT_TRUE(context.settings.deleteAll.boxOfIptc);
    EXPECT_TRUE(context.settings.deleteAll.safetyCopy) << "is another setting";
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(file, "XMP:All") + valueOf(file, "EXIF:All"), "");
    EXPECT_TRUE(fs::exists(context.cachePath / "sav"));
    jobs::OperationDialog next(parts, operationOf(176), {file}, nullptr);
    EXPECT_FALSE(next.control<QAbstractButton>(1089)->isChecked());
    EXPECT_TRUE(next.control<QAbstractButton>(1678)->isChecked());
}

TEST_F(RemovalDialogs, CopyingAsksForASourceAndFamilies) {
    const fs::path source = makePhoto("source \"x\" $(y).jpg");
    const fs::path target = folder / "photos/target.jpg";
    support::writeJpeg(target);
    jobs::OperationDialog dialog(parts, operationOf(10065), {target}, nullptr);
    auto* edit = dialog.control<QLineEdit>(1321);
    edit->setText(QStringLiteral("/no/such.jpg"));
    press(dialog, dialogs::kOkControl);
    edit->setText(QString::fromStdString(source.string()));
    for (const int family : {1008, 1009, 1011}) press(dialog, family);
    press(dialog, dialogs::kOkControl);
    EXPECT_THAT(messages, ElementsAre("There is no file \"/no/such.jpg\".",
                                      "Choose at least one of EXIF, IPTC and XMP."));
    EXPECT_EQ(dialog.result(), 0);
    press(dialog, 1011);
    press(dialog, dialogs::kOkControl);
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_THAT(kindsOf(carryOut(dialog)), ElementsAre(Done));
    EXPECT_EQ(valueOf(target, "XMP-dc:Title"), "A title");
    EXPECT_EQ(valueOf(target, "IPTC:All"), "");
}

TEST_F(RemovalDialogs, ATagListThatCouldNotBeReadSaysSo) {
    const fs::path file = makePhoto("a.jpg");
    for (const support::ToolStandIn& standIn : support::kToolStandIns) {
        support::useTool(context, folder / "tool", standIn.script);
        runner.setKeepWaiting([&](std::chrono::milliseconds) { return !standIn.hangs; });
        DialogRemoveTags dialog(parts, {file}, nullptr);
        EXPECT_THAT(namesOf(dialog), IsEmpty());
        const QString shown = listOf(dialog).view().emptyText();
        EXPECT_THAT(shown.toStdString(), HasSubstr("ExifTool ")) << standIn.what;
        EXPECT_NE(shown, language.text(text::kNothingToRemove)) << standIn.what;
    }
    EXPECT_THAT(messages, IsEmpty());
    runner.setKeepWaiting({});
    support::useTool(context, folder / "tool", "echo '[IPTC] City: Town'; kill -KILL $$\n");
    DialogRemoveTags part(parts, {file}, nullptr);
    EXPECT_THAT(namesOf(part), ElementsAre("IPTC:City"));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_THAT(messages[0], HasSubstr("signal 9"));
}
