#include "app/LanguageFile.h"
#include "dialogs/DarkModeDialogBase.h"
#include "dialogs/FormLoader.h"
#include "dialogs/Messages.h"

#include <QLabel>
#include <QTest>

namespace {

namespace fs = std::filesystem;

TEST(Dialogs, WithoutALanguageFileADialogDoesNotRun) {
    const app::LanguageFile none;
    dialogs::DarkModeDialogBase dialog(none, 284, nullptr);
    EXPECT_FALSE(dialog.hasForm());
    EXPECT_EQ(dialog.control<QLabel>(28402), nullptr);
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
