#include "app/AboutDialog.h"
#include "app/Messages.h"

#include <QLabel>
#include <QTest>

namespace {

namespace fs = std::filesystem;

TEST(AboutDialog, SaysVersionAndToolAndEndsWithOne) {
    const app::LanguageFile english(TAGWRIGHT_BIN_DIR, 9);
    ASSERT_TRUE(english.valid());
    app::AppContext context;
    context.exifToolPath = "/opt/<b>odd</b>/exiftool";
    app::AboutDialog dialog(context, english, QStringLiteral("1.2.3"), nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.templateNumber(), 284);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("About Tagwright"));
    EXPECT_TRUE(dialog.control<QLabel>(28402)->text().contains(QStringLiteral("1.2.3")));
    EXPECT_TRUE(dialog.control<QLabel>(28403)->text().contains(QStringLiteral("/opt/<b>odd</b>/exiftool")));
    EXPECT_EQ(dialog.control<QLabel>(28403)->textFormat(), Qt::PlainText);

    QMetaObject::invokeMethod(
        &dialog, [&] { QTest::mouseClick(dialog.control<QAbstractButton>(app::kOkControl), Qt::LeftButton); },
        Qt::QueuedConnection);
    EXPECT_EQ(dialog.run(), 1);
    QMetaObject::invokeMethod(
        &dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); }, Qt::QueuedConnection);
    EXPECT_EQ(dialog.run(), 0);
}

TEST(Dialogs, WithoutALanguageFileADialogDoesNotRun) {
    const app::LanguageFile none;
    app::DarkModeDialogBase dialog(none, 284, nullptr);
    EXPECT_FALSE(dialog.hasForm());
    EXPECT_EQ(dialog.control<QLabel>(28402), nullptr);
    EXPECT_EQ(dialog.run(), 0);
}

TEST(Dialogs, AFormThatIsNoFormIsTold) {
    for (const QByteArray& form :
         {QByteArray(), QByteArray("no xml"), QByteArray("<ui version=\"4.0\"></ui>"),
          QByteArray("<ui version=\"4.0\"><widget class=\"QDialog\"")}) {
        QDialog dialog;
        EXPECT_NE(app::LoadForm(dialog, form), QString()) << form.toStdString();
    }
}

TEST(Messages, ATestCanAnswer) {
    std::vector<app::Message> shown;
    app::SetMessageAnswer([&](QWidget*, const app::Message& message) {
        shown.push_back(message);
        return QMessageBox::No;
    });
    EXPECT_EQ(app::ShowMessage(nullptr,
                               {.text = QStringLiteral("An error occured!"), .icon = app::MessageIcon::Stop}),
              QMessageBox::No);
    app::SetMessageAnswer({});
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
            EXPECT_EQ(box->property(app::kMessageIconProperty).toInt(), 64);
            QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        },
        Qt::QueuedConnection);
    EXPECT_EQ(app::ShowMessage(nullptr, {.text = QStringLiteral("<img src=x> one\ntwo"),
                                         .icon = app::MessageIcon::Information,
                                         .buttons = QMessageBox::Yes | QMessageBox::No}),
              QMessageBox::Yes);
}

}  // namespace
