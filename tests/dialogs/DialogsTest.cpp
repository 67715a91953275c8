#include "app/LanguageFile.h"
#include "dialogs/DarkModeDialogBase.h"
#include "dialogs/FormControls.h"
#include "dialogs/FormLoader.h"
#include "dialogs/Messages.h"
#include "dialogs/QtTexts.h"
#include "support/LanguageSources.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <map>
#include <memory>

namespace {

namespace fs = std::filesystem;

TEST(Dialogs, WithoutALanguageFileADialogDoesNotRun) {
    const app::LanguageFile none;
    dialogs::DarkModeDialogBase dialog(none, 284, nullptr);
    EXPECT_FALSE(dialog.hasForm());
    EXPECT_NE(dialog.control<QLabel>(28402), nullptr) << "a stand-in";
    EXPECT_EQ(dialog.run(), 0);
}

TEST(Dialogs, AFormThatIsNoFormIsTold) {
    for (const QByteArray& form :
         {QByteArray(), QByteArray("no xml"), QByteArray("<ui version=\"4.0\"></ui>"),
          QByteArray("<ui version=\"4.0\"><widget class=\"QDialog\"")}) {
        QDialog dialog;
        EXPECT_NE(dialogs::loadForm(dialog, form), QString()) << form.toStdString();
    }
}

TEST(FormControls, EveryFormHasTheControlsThatItsDialogUses) {
    const app::LanguageFile english(TAGWRIGHT_BIN_DIR, app::kEnglishLanguage);
    std::map<int, std::unique_ptr<QDialog>> built;
    for (const dialogs::FormControl& row : dialogs::allFormControls()) {
        std::unique_ptr<QDialog>& dialog = built[row.templateNumber];
        if (dialog == nullptr) {
            dialog = std::make_unique<QDialog>();
            ASSERT_EQ(dialogs::loadForm(*dialog, english.form(row.templateNumber)), QString());
        }
        const QWidget* control = dialogs::findControl(*dialog, row.controlId);
        ASSERT_NE(control, nullptr) << row.templateNumber << ' ' << row.controlId;
        EXPECT_TRUE(control->inherits(row.className)) << row.templateNumber << ' ' << row.controlId;
    }
    EXPECT_GT(built.size(), 20u);
}

/// A language file of which a form has lost a control, or has it of another class.
class FaultyForm : public ::testing::Test {
 protected:
    FaultyForm() {
        std::filesystem::create_directories(folder_ / "babel");
        dialogs::setMessageAnswer([this](QWidget*, const dialogs::Message& message) {
            told_.append(message.text);
            return QMessageBox::Ok;
        });
    }
    ~FaultyForm() override { dialogs::setMessageAnswer({}); }

    const app::LanguageFile& language() {
        sources_.pack(folder_ / "babel" / "0009.dlk");
        language_ = std::make_unique<app::LanguageFile>(folder_.path(), app::kEnglishLanguage);
        return *language_;
    }

    support::TemporaryFolder folder_;
    support::LanguageSources sources_;
    std::unique_ptr<app::LanguageFile> language_;
    QStringList told_;
};

TEST_F(FaultyForm, ARequiredControlHasAStandInAndTheDialogTellsInsteadOfOpening) {
    sources_.replace("forms/185.ui", "1697", "99999");
    dialogs::DarkModeDialogBase dialog(language(), 185, nullptr);
    EXPECT_FALSE(dialog.hasForm());
    ASSERT_NE(dialog.control<QDateEdit>(1697), nullptr);
    EXPECT_FALSE(dialog.control<QDateEdit>(1697)->isVisibleTo(&dialog));
    EXPECT_EQ(dialog.run(), 0);
    ASSERT_EQ(told_.size(), 1);
    EXPECT_TRUE(told_[0].contains("185") && told_[0].contains("QDateEdit 1697")) << told_[0].toStdString();
}

TEST_F(FaultyForm, AControlOfAnotherClassIsNotTakenForTheRightOne) {
    sources_.replace("forms/186.ui", "class=\"QComboBox\"", "class=\"QLineEdit\"");
    const dialogs::DarkModeDialogBase dialog(language(), 186, nullptr);
    EXPECT_FALSE(dialog.hasForm());
    EXPECT_NE(dialog.control<QComboBox>(1695), nullptr);
}

TEST_F(FaultyForm, WithoutAnOptionalControlTheDialogOpens) {
    sources_.replace("forms/284.ui", "28400", "99999");
    const dialogs::DarkModeDialogBase dialog(language(), 284, nullptr);
    EXPECT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.control<QLabel>(28400), nullptr);
}

TEST_F(FaultyForm, AFormThatIsNotThereIsTold) {
    sources_.remove("forms/186.ui");
    dialogs::DarkModeDialogBase dialog(language(), 186, nullptr);
    EXPECT_NE(dialog.control<QComboBox>(1695), nullptr);
    EXPECT_EQ(dialog.run(), 0);
    EXPECT_EQ(told_.size(), 1);
}

TEST(Messages, ButtonsSpeakTheLanguageOfTheProgram) {
    const struct {
        int language;
        const char* cancel;
    } cases[] = {{12, "Annuler"}, {7, "Abbrechen"}, {10, "Cancelar"}, {9, "Cancel"}};
    for (const auto& [language, cancel] : cases) {
        const auto texts = dialogs::speakQtTexts(language);
        const QDialogButtonBox box(QDialogButtonBox::Cancel);
        const QString text = box.button(QDialogButtonBox::Cancel)->text();
        EXPECT_EQ(QString(text).remove(u'&'), QLatin1StringView(cancel));
    }
}

TEST(Messages, ATestCanAnswer) {
    std::vector<dialogs::Message> shown;
    dialogs::setMessageAnswer([&](QWidget*, const dialogs::Message& message) {
        shown.push_back(message);
        return QMessageBox::No;
    });
    EXPECT_EQ(dialogs::showMessage(
                  nullptr, {.text = QStringLiteral("An error occured!"), .icon = dialogs::MessageIcon::Stop}),
              QMessageBox::No);
    dialogs::setMessageAnswer({});
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].title, QStringLiteral("Tagwright"));
    EXPECT_EQ(static_cast<int>(shown[0].icon), 16);
}

TEST(Messages, TheBoxCarriesTextTitleIconAndButtons) {
    QMetaObject::invokeMethod(
        qApp,
        [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), QStringLiteral("<img src=x> one\ntwo"));
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->property(dialogs::kMessageIconProperty).toInt(), 64);
            QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        },
        Qt::QueuedConnection);
    EXPECT_EQ(dialogs::showMessage(nullptr, {.text = QStringLiteral("<img src=x> one\ntwo"),
                                             .icon = dialogs::MessageIcon::Information,
                                             .buttons = QMessageBox::Yes | QMessageBox::No}),
              QMessageBox::Yes);
}

}  // namespace
