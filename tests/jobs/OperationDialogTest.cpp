#include "jobs/OperationDialog.h"

#include "dialogs/Messages.h"
#include "jobs/OperationJob.h"
#include "support/LanguageSources.h"
#include "support/TemporaryFolder.h"
#include "tags/RatingMemory.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <array>
#include <memory>

using app::CommandForm;
using jobs::FieldKind;
using jobs::FilledForm;
using jobs::Operation;
using jobs::OperationBox;
using jobs::OperationField;
using testing::ElementsAre;

namespace fs = std::filesystem;

namespace {

constexpr int kTemplate = 990;

enum Control {
    kText = 959,
    kLines = 960,
    kSource = 1321,
    kChoose = 1097,
    kFolder = 1322,
    kChooseFolder = 1098,
    kYears = 1064,
    kRating = 953,
    kWhen = 1697,
    kList = 1600,
    kFormat = 954,
    kItems = 1601,
    kClear = 963,
    kTarget = 955,
    kSave = 956,
    kSure = 1,
    kAll = 1930,
    kSome = 1931,
    kExif = 1008,
    kXmp = 1011,
};

constexpr auto kRows =
    std::to_array<jobs::OperationListRow>({{1142, "Rating", "IFD0"}, {8849, "Rating", "XMP-xmp"}});

constexpr const char* kTypes[] = {"Text (*.txt)"};

constexpr auto kFields = std::to_array<OperationField>({
    {.control = kText, .kind = FieldKind::Text, .mustBeFilled = true, .missing = {.literal = "Enter it."}},
    {.control = kLines, .kind = FieldKind::Text},
    {.control = kSource,
     .kind = FieldKind::File,
     .offer = {.button = kChoose, .titleLiteral = "Choose it", .types = kTypes}},
    {.control = kFolder,
     .kind = FieldKind::Folder,
     .offer = {.button = kChooseFolder, .titleLiteral = "Choose the folder"}},
    {.control = kYears, .kind = FieldKind::Number},
    {.control = kRating, .kind = FieldKind::Choice},
    {.control = kWhen, .kind = FieldKind::DateTime},
    {.control = kList, .kind = FieldKind::Rows, .rows = kRows},
});

constexpr auto kBoxes = std::to_array<OperationBox>({{kAll}, {kExif}, {kXmp}});

bool isEnabled(int control, CommandForm form, const FilledForm& filled) {
    if (control == kYears) return form == CommandForm::Corrected;
    return (control != kExif && control != kXmp) || !filled.isTicked(kAll);
}

void offerLast(const jobs::Opening& opening, FilledForm& filled) {
    filled.set(kText, opening.context.settings.batch.defaultSavePath);
    filled.set(kFolder, opening.folder);
    filled.set(kYears, 7);
    filled.set(kRating, 2);
    filled.set(kXmp, true);
    filled.set(kSource, fs::path("/old\xFF.txt"));
    filled.set(kWhen, QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6)));
}

void keepText(const FilledForm& filled, CommandForm, app::AppContext& context) {
    context.settings.batch.defaultSavePath = filled.text(kText);
}

QString titleOf(const app::LanguageFile&, std::size_t files) {
    return QStringLiteral("Work on %1").arg(files);
}

constexpr Operation kOperation{.id = 900,
                               .templateNumber = kTemplate,
                               .title = titleOf,
                               .fields = kFields,
                               .boxes = kBoxes,
                               .nothingTicked = jobs::NothingTicked::IsTold,
                               .noneTicked = {.literal = "Tick one."},
                               .focus = kText,
                               .isEnabled = isEnabled,
                               .offer = offerLast,
                               .keep = keepText};

// A dialog that chooses its files out of those of the window.

std::vector<jobs::OperationEntry> formats(const jobs::Opening&) {
    return {{0, "CSV"}, {1, "TXT"}};
}

std::vector<jobs::OperationEntry> itemsShown(const jobs::Opening& opening) {
    std::vector<jobs::OperationEntry> items;
    for (const fs::path& file : opening.shown)
        items.push_back({int(items.size()),
                         QString::fromStdString(file.filename().string()),
                         {},
                         std::ranges::find(opening.files, file) != opening.files.end()});
    return items;
}

fs::path besideShown(const jobs::Opening& opening) {
    return opening.folder;
}

constexpr auto kChoosingFields = std::to_array<OperationField>({
    {.control = kFormat, .kind = FieldKind::Choice, .entries = formats},
    {.control = kItems, .kind = FieldKind::Rows, .entries = itemsShown},
    {.control = kText,
     .kind = FieldKind::Text,
     .mustBeFilled = true,
     .missing = {.literal = "Enter it.",
                 .icon = jobs::OperationMessage::Icon::Information,
                 .title = "Tagwright Batch"}},
    {.control = kYears, .kind = FieldKind::Number},
    {.control = kTarget,
     .kind = FieldKind::File,
     .offer = {.button = kSave, .titleLiteral = "Save", .newExtension = "set", .start = besideShown}},
});

void clearAll(const jobs::Pressed& pressed) {
    pressed.filled.set(kItems, std::vector<int>{});
    pressed.filled.set(kText, QStringLiteral("cleared %1").arg(pressed.filled.number(kFormat)));
}

constexpr auto kChoosingButtons = std::to_array<jobs::OperationButton>({{kClear, clearAll}});

bool isShownFor(int control, CommandForm, const FilledForm& filled) {
    return control != kYears || filled.number(kFormat) == 1;
}

std::vector<fs::path> tickedItems(const FilledForm& filled, const jobs::Opening& opening) {
    std::vector<fs::path> files;
    for (const int at : filled.rows(kItems)) files.push_back(opening.shown.at(std::size_t(at)));
    return files;
}

jobs::OperationQuestion askWhetherSure(const FilledForm& filled, const jobs::Opening&,
                                       const app::LanguageFile&) {
    if (filled.text(kText) == QStringLiteral("sure")) return {};
    return {QStringLiteral("Replace it?"), filled.number(kFormat) == 0 ? int(kSure) : 0};
}

bool wasSure = false;

void noteAnswer(const FilledForm& filled, CommandForm, app::AppContext&) {
    wasSure = filled.isTicked(kSure);
}

constexpr Operation kChoosing{.id = 903,
                              .templateNumber = kTemplate,
                              .fields = kChoosingFields,
                              .buttons = kChoosingButtons,
                              .isShown = isShownFor,
                              .keep = noteAnswer,
                              .chooseFiles = tickedItems,
                              .noFiles = {.literal = "Tick a file."},
                              .question = askWhetherSure};

std::vector<jobs::OperationResult> found(const jobs::JobEnd& end, const FilledForm& filled) {
    std::vector<jobs::OperationResult> results;
    for (const exiftool::Outcome& outcome : end.result.outcomes)
        results.push_back({{filled.text(kText)}, outcome.file});
    return results;
}

void countResults(const jobs::Pressed& pressed) {
    pressed.filled.set(kText, QStringLiteral("%1 found").arg(pressed.results.size()));
}

constexpr auto kSearchFields =
    std::to_array<OperationField>({{.control = kText, .kind = FieldKind::Text, .mustBeFilled = true}});
constexpr auto kSearchButtons = std::to_array<jobs::OperationButton>({{kClear, countResults}});
constexpr Operation kSearch{.id = 904,
                            .templateNumber = kTemplate,
                            .fields = kSearchFields,
                            .buttons = kSearchButtons,
                            .results = found,
                            .resultList = kItems};

std::string widgetOf(int control, const std::string& className, const std::string& more = {}) {
    const std::string number = std::to_string(control);
    return "<item><widget class=\"" + className + "\" name=\"c" + number +
           "\"><property name=\"controlId\" stdset=\"0\"><number>" + number + "</number></property>" + more +
           "</widget></item>";
}

std::string formWithEverything() {
    const std::string checked = "<property name=\"checked\"><bool>true</bool></property>";
    std::string items =
        widgetOf(kText, "QLineEdit") + widgetOf(kLines, "QPlainTextEdit") + widgetOf(kSource, "QLineEdit") +
        widgetOf(kChoose, "QPushButton") + widgetOf(kFolder, "QLineEdit") +
        widgetOf(kChooseFolder, "QPushButton") + widgetOf(kYears, "QSpinBox") +
        widgetOf(kRating, "QComboBox",
                 "<item><property name=\"text\"><string>0</string></property></item>"
                 "<item><property name=\"text\"><string>1</string></property></item>"
                 "<item><property name=\"text\"><string>2</string></property></item>") +
        widgetOf(kWhen, "QDateTimeEdit") +
        widgetOf(kList, "QTreeWidget",
                 "<column><property name=\"text\"><string>Tag</string></property></column>"
                 "<column><property name=\"text\"><string>Type</string></property></column>") +
        widgetOf(kFormat, "QComboBox") +
        widgetOf(kItems, "QTreeWidget",
                 "<column><property name=\"text\"><string>Name</string></property></column>") +
        widgetOf(kClear, "QPushButton") + widgetOf(kTarget, "QLineEdit") + widgetOf(kSave, "QPushButton") +
        "<item><widget class=\"QLabel\" name=\"ofYears\"><property name=\"buddy\"><cstring>c" +
        std::to_string(kYears) + "</cstring></property></widget></item>" +
        widgetOf(kAll, "QRadioButton", checked) + widgetOf(kSome, "QRadioButton") +
        widgetOf(kExif, "QCheckBox") + widgetOf(kXmp, "QCheckBox");
    return "<ui version=\"4.0\"><class>D</class><widget class=\"QDialog\" name=\"D\">"
           "<layout class=\"QVBoxLayout\" name=\"l\">" +
           items +
           "<item><widget class=\"QDialogButtonBox\" name=\"b\"><property name=\"standardButtons\"><set>"
           "QDialogButtonBox::Cancel|QDialogButtonBox::Ok</set></property></widget></item>"
           "</layout></widget><connections>"
           "<connection><sender>b</sender><signal>accepted()</signal><receiver>D</receiver>"
           "<slot>accept()</slot></connection></connections></ui>";
}

class OperationDialogTest : public testing::Test {
 protected:
    OperationDialogTest() {
        fs::create_directories(folder_ / "babel");
        const support::LanguageSources sources;
        sources.add("forms/990.ui", formWithEverything());
        sources.pack(folder_ / "babel/0009.dlk");
        language_ = std::make_unique<app::LanguageFile>(folder_.path(), app::kEnglishLanguage);
        context_.settings.exifTool.correctedCommands = true;
        context_.settings.batch.defaultSavePath = QStringLiteral("last one");
        dialogs::setMessageAnswer([this](QWidget*, const dialogs::Message& message) {
            messages_.push_back(message.text.toStdString());
            message_ = message;
            return answer_;
        });
    }
    ~OperationDialogTest() override { dialogs::setMessageAnswer({}); }

    std::unique_ptr<jobs::OperationDialog> open(const Operation& operation = kOperation) {
        parts_ = std::make_unique<jobs::OperationParts>(jobs::OperationParts{
            context_, *language_, dictionary_, labels_, ratingMemory_, ratingLog_, runner_, reads_});
        parts_->shownFolder = [this] { return folder_.path(); };
        parts_->shownItems = [] { return std::vector<fs::path>{"/a.jpg", "/b.jpg", "/c.jpg"}; };
        auto dialog = std::make_unique<jobs::OperationDialog>(
            *parts_, operation, std::vector<fs::path>{"/a.jpg", "/b.jpg"}, nullptr);
        dialog->show();
        return dialog;
    }
    template <typename Widget>
    static Widget& in(const QDialog& dialog, int control) {
        return *qobject_cast<Widget*>(dialogs::findControl(dialog, control));
    }
    static void press(const QDialog& dialog, int control) { in<QAbstractButton>(dialog, control).click(); }

    support::TemporaryFolder folder_;
    app::AppContext context_;
    std::unique_ptr<app::LanguageFile> language_;
    tags::TagDictionary dictionary_;
    tags::LabelLibrary labels_{9, dictionary_};
    tags::RatingMemory ratingMemory_;
    tags::RatingLog ratingLog_;
    exiftool::ToolRunner runner_{context_};
    exiftool::ReadFeedback feedback_;
    exiftool::ReadCommands reads_{context_, runner_, feedback_};
    std::unique_ptr<jobs::OperationParts> parts_;
    std::vector<std::string> messages_;
    dialogs::Message message_;
    QMessageBox::StandardButton answer_ = QMessageBox::Ok;
};

}  // namespace

TEST_F(OperationDialogTest, WhatIsOfferedStandsInTheControlsAndComesBackAsItWas) {
    const auto dialog = open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Work on 2"));
    EXPECT_EQ(in<QLineEdit>(*dialog, kText).text(), QStringLiteral("last one"));
    const FilledForm filled = dialog->filled();
    EXPECT_EQ(filled.path(kSource), fs::path("/old\xFF.txt")) << "a name that no text can hold";
    EXPECT_EQ(filled.path(kFolder), folder_.path());
    EXPECT_EQ(filled.number(kYears), 7);
    EXPECT_EQ(filled.number(kRating), 2);
    EXPECT_EQ(filled.dateTime(kWhen), QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6)));
    EXPECT_TRUE(filled.isTicked(kXmp));
    EXPECT_TRUE(filled.isTicked(kAll));
    EXPECT_FALSE(filled.isTicked(kExif));
    EXPECT_EQ(in<QTreeWidget>(*dialog, kList).topLevelItem(1)->text(1), QStringLiteral("XMP-xmp"));
    EXPECT_TRUE(filled.rows(kList).empty());
}

TEST_F(OperationDialogTest, WhatTheUserFillsInIsTaken) {
    const auto dialog = open();
    EXPECT_EQ(dialog->focusWidget(), &in<QLineEdit>(*dialog, kText));
    QTest::keyClick(dialog->focusWidget(), Qt::Key_End);
    QTest::keyClicks(dialog->focusWidget(), QStringLiteral("!"));
    in<QPlainTextEdit>(*dialog, kLines).setPlainText(QStringLiteral("two\nlines"));
    in<QLineEdit>(*dialog, kSource).setText(QStringLiteral("/new.txt"));
    in<QSpinBox>(*dialog, kYears).setValue(3);
    in<QComboBox>(*dialog, kRating).setCurrentIndex(1);
    QTreeWidget& list = in<QTreeWidget>(*dialog, kList);
    list.setCurrentItem(list.topLevelItem(1));
    QTest::keyClick(&list, Qt::Key_Space);
    press(*dialog, kSome);
    press(*dialog, kExif);
    const FilledForm filled = dialog->filled();
    EXPECT_EQ(filled.text(kText), QStringLiteral("last one!"));
    EXPECT_EQ(filled.text(kLines), QStringLiteral("two\nlines"));
    EXPECT_EQ(filled.path(kSource), fs::path("/new.txt"));
    EXPECT_EQ(filled.number(kYears), 3);
    EXPECT_EQ(filled.number(kRating), 1);
    EXPECT_THAT(filled.rows(kList), ElementsAre(8849));
    EXPECT_FALSE(filled.isTicked(kAll));
    EXPECT_TRUE(filled.isTicked(kExif));
    press(*dialog, dialogs::kOkControl);
    EXPECT_EQ(dialog->result(), 1);
    EXPECT_EQ(context_.settings.batch.defaultSavePath, QStringLiteral("last one!"));
    const jobs::Job job = dialog->takeJob();
    EXPECT_EQ(job.title, QStringLiteral("Work on 2"));
    EXPECT_THAT(job.files, ElementsAre("/a.jpg", "/b.jpg"));
}

TEST_F(OperationDialogTest, ControlsAreGreyedAsTheOthersStandAndByForm) {
    for (const bool corrected : {true, false}) {
        context_.settings.exifTool.correctedCommands = corrected;
        const auto dialog = open();
        EXPECT_EQ(in<QWidget>(*dialog, kYears).isEnabled(), corrected);
        EXPECT_FALSE(in<QWidget>(*dialog, kExif).isEnabled());
        press(*dialog, kSome);
        EXPECT_TRUE(in<QWidget>(*dialog, kExif).isEnabled());
        EXPECT_EQ(in<QWidget>(*dialog, kYears).isEnabled(), corrected);
    }
}

TEST_F(OperationDialogTest, ItStaysOpenUntilEverythingIsThereAndMarksWhatIsMissing) {
    const auto dialog = open();
    in<QLineEdit>(*dialog, kText).clear();
    in<QWidget>(*dialog, kLines).setFocus();
    press(*dialog, dialogs::kOkControl);
    EXPECT_THAT(messages_, ElementsAre("Enter it."));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->focusWidget(), &in<QLineEdit>(*dialog, kText));
    QTest::keyClicks(&in<QLineEdit>(*dialog, kText), QStringLiteral("x"));
    press(*dialog, kSome);
    press(*dialog, kXmp);
    press(*dialog, dialogs::kOkControl);
    EXPECT_THAT(messages_, ElementsAre("Enter it.", "Tick one."));
    EXPECT_EQ(dialog->result(), 0);
    EXPECT_EQ(context_.settings.batch.defaultSavePath, QStringLiteral("last one")) << "nothing is kept yet";
    EXPECT_TRUE(dialog->takeJob().files.empty());

    static constexpr Operation kQuiet{.id = 901,
                                      .templateNumber = kTemplate,
                                      .boxes = kBoxes,
                                      .nothingTicked = jobs::NothingTicked::Cancels};
    const auto quiet = open(kQuiet);
    press(*quiet, kSome);
    press(*quiet, dialogs::kOkControl);
    EXPECT_FALSE(quiet->isVisible());
    EXPECT_EQ(quiet->result(), 0);
    EXPECT_TRUE(quiet->takeJob().files.empty());
    EXPECT_EQ(messages_.size(), 2u);
}

TEST_F(OperationDialogTest, OffersAndRowsOfTheMomentChooseTheFiles) {
    const auto dialog = open(kChoosing);
    EXPECT_EQ(in<QComboBox>(*dialog, kFormat).itemText(1), QStringLiteral("TXT"));
    EXPECT_THAT(dialog->filled().rows(kItems), ElementsAre(0, 1)) << "the two that are selected";
    press(*dialog, kClear);
    EXPECT_THAT(dialog->filled().rows(kItems), testing::IsEmpty());
    EXPECT_EQ(dialog->filled().text(kText), QStringLiteral("cleared 0"));
    press(*dialog, dialogs::kOkControl);
    EXPECT_THAT(messages_, ElementsAre("Tick a file."));
    EXPECT_TRUE(dialog->isVisible());
    in<QTreeWidget>(*dialog, kItems).topLevelItem(2)->setCheckState(0, Qt::Checked);
    in<QLineEdit>(*dialog, kText).setText(QStringLiteral("sure"));
    press(*dialog, dialogs::kOkControl);
    EXPECT_EQ(messages_.size(), 1u);
    EXPECT_THAT(dialog->takeJob().files, ElementsAre("/c.jpg"));
}

TEST_F(OperationDialogTest, AMessageHasItsTitleAndIcon) {
    const auto dialog = open(kChoosing);
    press(*dialog, dialogs::kOkControl);
    EXPECT_EQ(message_.title, QStringLiteral("Tagwright Batch"));
    EXPECT_EQ(message_.icon, dialogs::MessageIcon::Information);
}

TEST_F(OperationDialogTest, AControlIsThereWithItsLabelOnlyForTheChoiceThatItServes) {
    const auto dialog = open(kChoosing);
    const auto* label = dialog->findChild<QLabel*>(QStringLiteral("ofYears"));
    for (const int choice : {0, 1, 0}) {
        in<QComboBox>(*dialog, kFormat).setCurrentIndex(choice);
        EXPECT_EQ(in<QWidget>(*dialog, kYears).isVisible(), choice == 1);
        EXPECT_EQ(label->isVisible(), choice == 1);
        EXPECT_TRUE(in<QWidget>(*dialog, kItems).isVisible());
    }
}

TEST_F(OperationDialogTest, AQuestionBeforeTheRunKeepsItOpenOrGivesItsAnswer) {
    using enum QMessageBox::StandardButton;
    struct {
        int choice;
        QMessageBox::StandardButton answer;
        bool runs;
    } const cases[] = {{0, Yes, true}, {0, No, true}, {0, Cancel, false}, {1, Yes, true}, {1, No, false}};
    for (const auto& [choice, answer, runs] : cases) {
        const auto dialog = open(kChoosing);
        in<QLineEdit>(*dialog, kText).setText(QStringLiteral("ask"));
        in<QComboBox>(*dialog, kFormat).setCurrentIndex(choice);
        answer_ = answer;
        wasSure = false;
        press(*dialog, dialogs::kOkControl);
        EXPECT_EQ(messages_.back(), "Replace it?");
        EXPECT_EQ(dialog->takeJob().files.size(), runs ? 2u : 0u) << choice << ' ' << answer;
        EXPECT_EQ(dialog->isVisible(), !runs);
        EXPECT_EQ(wasSure, choice == 0 && answer == Yes);
    }
}

TEST_F(OperationDialogTest, ItDoesNotOpenOverAControlThatCannotHoldItsField) {
    static constexpr auto kOfOtherClass =
        std::to_array<OperationField>({{.control = kList, .kind = FieldKind::Text}});
    static constexpr auto kNumberOfBox =
        std::to_array<OperationField>({{.control = kExif, .kind = FieldKind::Number}});
    static constexpr auto kMissing =
        std::to_array<OperationField>({{.control = 5, .kind = FieldKind::Choice}});
    static constexpr auto kNoButton = std::to_array<OperationField>(
        {{.control = kSource, .kind = FieldKind::File, .offer = {.button = kText}}});
    static constexpr auto kNoBox = std::to_array<OperationBox>({{kText}});
    static constexpr struct {
        Operation operation;
        const char* told;
    } kCases[] = {{{.id = 902, .templateNumber = kTemplate, .fields = kOfOtherClass}, "QLineEdit 1600"},
                  {{.id = 902, .templateNumber = kTemplate, .fields = kNumberOfBox}, "QSpinBox 1008"},
                  {{.id = 902, .templateNumber = kTemplate, .fields = kMissing}, "QComboBox 5"},
                  {{.id = 902, .templateNumber = kTemplate, .fields = kNoButton}, "QPushButton 959"},
                  {{.id = 902, .templateNumber = kTemplate, .boxes = kNoBox}, "QCheckBox 959"},
                  {{.id = 902, .templateNumber = kTemplate, .focus = 5}, "QWidget 5"}};
    for (const auto& [operation, told] : kCases) {
        const auto dialog = open(operation);
        EXPECT_FALSE(dialog->hasForm()) << told;
        dialog->hide();
        messages_.clear();
        EXPECT_EQ(dialog->run(), 0) << told;
        EXPECT_THAT(messages_, ElementsAre(testing::HasSubstr(told)));
        dialog->accept();
        EXPECT_TRUE(dialog->takeJob().files.empty()) << told;
    }
    EXPECT_TRUE(open()->hasForm());
}

TEST_F(OperationDialogTest, APathIsChosenBesideTheOneThatStandsThere) {
    support::writeBytes(folder_ / "here.txt", "x");
    const auto dialog = open();
    in<QLineEdit>(*dialog, kSource).setText(QString::fromStdString((folder_ / "other.txt").string()));
    const auto choose = [&](int button, const fs::path& path) {
        QTimer::singleShot(0, dialog.get(), [&] {
            auto* files = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(files, nullptr);
            files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                ->setText(QString::fromStdString(path.string()));
            QMetaObject::invokeMethod(files, "accept");
        });
        press(*dialog, button);
    };
    choose(kChoose, folder_ / "here.txt");
    choose(kChooseFolder, folder_.path());
    const FilledForm filled = dialog->filled();
    EXPECT_EQ(filled.path(kSource), folder_ / "here.txt");
    EXPECT_EQ(filled.path(kFolder), folder_.path());
}

TEST_F(OperationDialogTest, ADialogComesBackFilledInWithWhatItsRunHasBrought) {
    EXPECT_FALSE(open()->comesBack());
    const auto dialog = open(kSearch);
    ASSERT_TRUE(dialog->comesBack());
    auto& list = in<QTreeWidget>(*dialog, kItems);
    for (const auto& [sought, files] : std::vector<std::pair<QString, std::vector<fs::path>>>{
             {"wood", {"/a.jpg", "/a.jpg", "/b.jpg"}}, {"sea", {}}}) {
        dialog->show();
        in<QLineEdit>(*dialog, kText).setText(sought);
        dialog->accept();
        ASSERT_EQ(dialog->takeJob().files.size(), 2U);
        in<QLineEdit>(*dialog, kText).setText("changed since");
        jobs::JobResult result;
        for (const fs::path& file : files) result.outcomes.push_back({file, exiftool::OutcomeKind::Done, {}});
        const auto told = dialog->showResults({result, context_, *language_, nullptr, {}});
        EXPECT_EQ(told.size(), files.empty() ? 0U : 2U) << "each file once";
        EXPECT_EQ(list.topLevelItemCount(), int(files.size()));
        for (int row = 0; row < list.topLevelItemCount(); ++row)
            EXPECT_EQ(list.topLevelItem(row)->text(0), sought) << "as it was asked";
        press(*dialog, kClear);
        EXPECT_EQ(dialog->filled().text(kText), QStringLiteral("%1 found").arg(files.size()));
    }
}

TEST_F(OperationDialogTest, ANewFileIsNamedWhereTheOperationSays) {
    const auto dialog = open(kChoosing);
    QTimer::singleShot(0, dialog.get(), [&] {
        auto* files = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(files, nullptr);
        EXPECT_EQ(files->directory().path().toStdString(), folder_.path().string());
        files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("mine"));
        QMetaObject::invokeMethod(files, "accept");
    });
    press(*dialog, kSave);
    EXPECT_EQ(dialog->filled().path(kTarget), folder_ / "mine.set");
}
