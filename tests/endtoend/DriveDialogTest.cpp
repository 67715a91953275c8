#include "dialogs/FormLoader.h"
#include "drive/CommandServer.h"
#include "drive/OpenWindows.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QJsonArray>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimeEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

// What a script does in a dialog, on a dialog that has each kind of control.

namespace {

enum Id {
    kEdit = 101,
    kText,
    kFixed,
    kCombo,
    kBox,
    kFirst,
    kSecond,
    kDate,
    kTime,
    kNumber,
    kList,
    kHidden,
    kDisabled
};

class DriveDialogTest : public ::testing::Test {
 protected:
    DriveDialogTest() {
        add(edit, kEdit);
        add(text, kText);
        add(fixed, kFixed)->setReadOnly(true);
        add(combo, kCombo)->addItems({"one", "two", "two more"});
        add(box, kBox)->setText("box");
        add(first, kFirst)->setChecked(true);
        add(second, kSecond);
        add(date, kDate);
        add(time, kTime);
        add(number, kNumber)->setRange(0, 1000);
        add(hidden, kHidden)->hide();
        add(disabled, kDisabled)->setEnabled(false);
        fillList();
        layout->addWidget(buttons);
        QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
        QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
        dialog.open();
        EXPECT_TRUE(QTest::qWaitFor([this] { return drive::openDialog() == &dialog; }));
    }

    template <typename Control>
    Control* add(Control* control, int id) {
        control->setProperty(dialogs::kControlIdProperty, id);
        layout->addWidget(control);
        return control;
    }

    void fillList() {
        add(list, kList)->setHeaderLabels({"Tag", "Group"});
        const QStringList rows[] = {{"Title", "XMP-dc"}, {"City", "IPTC"}, {"City", "XMP-photoshop"}};
        for (const QStringList& row : rows) (new QTreeWidgetItem(list, row))->setCheckState(0, Qt::Unchecked);
    }

    QJsonObject described(int id) {
        for (const QJsonValue& control : drive::describeDialog().members["controls"].toArray())
            if (control["id"].toInt() == id) return control.toObject();
        return {};
    }

    QDialog dialog;
    QVBoxLayout* layout = new QVBoxLayout(&dialog);
    QLineEdit* edit = new QLineEdit;
    QPlainTextEdit* text = new QPlainTextEdit;
    QLineEdit* fixed = new QLineEdit("fixed");
    QComboBox* combo = new QComboBox;
    QCheckBox* box = new QCheckBox;
    QRadioButton* first = new QRadioButton;
    QRadioButton* second = new QRadioButton;
    QDateEdit* date = new QDateEdit;
    QTimeEdit* time = new QTimeEdit;
    QSpinBox* number = new QSpinBox;
    QLineEdit* hidden = new QLineEdit;
    QLineEdit* disabled = new QLineEdit;
    QTreeWidget* list = new QTreeWidget;
    QDialogButtonBox* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
};

}  // namespace

TEST_F(DriveDialogTest, EachControlTakesItsKindOfValueAndTellsIt) {
    const QString characters = QString::fromUtf8("a\"b \xF0\x9F\x93\xB7 \xE6\x97\xA5\n");
    const struct {
        int id;
        QString value;
        const char* member;
        QJsonValue told;
    } cases[] = {
        {kEdit, "new", "text", "new"},
        {kEdit, "", "text", ""},
        {kText, characters, "text", characters},
        {kCombo, "two", "row", 1},
        {kCombo, "#2", "text", "two more"},
        {kBox, "1", "checked", true},
        {kBox, "1", "checked", true},
        {kBox, "0", "checked", false},
        {kSecond, "1", "checked", true},
        {kFirst, "0", "checked", false},
        {kDate, "2021-12-31", "text", "2021-12-31"},
        {kTime, "23:59:58", "text", "23:59:58"},
        {kDate, "1999-01-02T03:04:05", "text", "1999-01-02"},
        {kNumber, "42", "value", 42},
        {kList, "XMP-photoshop:City", "row", 2},
        {kList, "0", "row", 0},
    };
    for (const auto& [id, value, member, told] : cases) {
        EXPECT_EQ(drive::setControl(id, value).error, QString()) << id;
        EXPECT_EQ(described(id)[member], told) << id << " " << value.toStdString();
    }
}

TEST_F(DriveDialogTest, WhatAUserCouldNotDoIsRefusedAndChangesNothing) {
    const struct {
        int id;
        const char* value;
    } cases[] = {{kFixed, "x"},     {kHidden, "x"},     {kDisabled, "x"}, {kCombo, "three"},
                 {kCombo, "#3"},    {kBox, "yes"},      {kFirst, "0"},    {kDate, "soon"},
                 {kNumber, "many"}, {kList, "Missing"}, {kList, "3"},     {999, "x"}};
    const QJsonArray before = drive::describeDialog().members["controls"].toArray();
    for (const auto& [id, value] : cases)
        EXPECT_NE(drive::setControl(id, value).error, QString()) << id << " " << value;
    EXPECT_NE(drive::checkRow(kList, "Missing", true).error, QString());
    EXPECT_NE(drive::checkRow(kEdit, "0", true).error, QString());
    EXPECT_NE(drive::clickCell(kEdit, "0", "0", "left").error, QString());
    EXPECT_NE(drive::clickCell(kList, "Title", "Missing", "left").error, QString());
    EXPECT_NE(drive::clickColumnHeader(kList, "Missing").error, QString());
    EXPECT_NE(drive::pressButton(999).error, QString());
    EXPECT_EQ(drive::describeDialog().members["controls"].toArray(), before);
}

TEST_F(DriveDialogTest, RowsAreTickedAndCellsClickedByTheirNames) {
    EXPECT_EQ(drive::checkRow(kList, "XMP-photoshop:City", true).error, QString());
    EXPECT_EQ(drive::checkRow(kList, "Title", true).error, QString());
    EXPECT_EQ(drive::checkRow(kList, "0", false).error, QString());
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(described(kList)["items"][row]["checked"].toBool(), row == 2) << row;
    QStringList clicked;
    QObject::connect(list, &QTreeWidget::itemClicked, &dialog,
                     [&](QTreeWidgetItem* item, int column) { clicked << item->text(column); });
    EXPECT_EQ(drive::clickCell(kList, "IPTC:City", "group", "left").error, QString());
    EXPECT_EQ(drive::clickCell(kList, "0", "0", "left").error, QString());
    EXPECT_EQ(clicked, QStringList({"IPTC", "Title"}));
    int section = -1;
    list->header()->setSectionsClickable(true);
    QObject::connect(list->header(), &QHeaderView::sectionClicked, &dialog, [&](int at) { section = at; });
    EXPECT_EQ(drive::clickColumnHeader(kList, "Group").error, QString());
    EXPECT_EQ(section, 1);
}

TEST_F(DriveDialogTest, TextIsTypedWhereTheKeyboardIs) {
    edit->setFocus();
    const QString typed = QString::fromUtf8("aB1 \xC3\xBC \xD7\xA9 \xE6\x97\xA5 \xF0\x9F\x93\xB7");
    EXPECT_EQ(drive::typeText(typed).error, QString());
    EXPECT_EQ(edit->text(), typed);
    EXPECT_EQ(drive::describeDialog().members["focus"].toInt(), kEdit);
    EXPECT_EQ(drive::pressKey("Tab").error, QString());
    EXPECT_EQ(drive::describeDialog().members["focus"].toInt(), kText);
    EXPECT_EQ(drive::typeText("two\nlines").error, QString());
    EXPECT_EQ(text->toPlainText(), "two\nlines");
    EXPECT_EQ(drive::pressKey("Escape").error, QString());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DriveDialogTest, NoIsTheSecondButtonOnlyWithoutACancel) {
    const struct {
        QMessageBox::StandardButtons offered;
        int pressed;
        QMessageBox::StandardButton meant;
    } cases[] = {
        {QMessageBox::Ok, 1, QMessageBox::Ok},
        {QMessageBox::Yes | QMessageBox::No, 1, QMessageBox::Yes},
        {QMessageBox::Yes | QMessageBox::No, 2, QMessageBox::No},
        {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, 2, QMessageBox::Cancel},
        {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No, QMessageBox::No},
    };
    for (const auto& [offered, pressed, meant] : cases) {
        QMessageBox message(QMessageBox::Question, "title", "text", offered, &dialog);
        message.open();
        ASSERT_TRUE(QTest::qWaitFor([&] { return drive::openMessage() == &message; }));
        EXPECT_EQ(drive::pressButton(pressed).error, QString());
        EXPECT_EQ(message.standardButton(message.clickedButton()), meant);
    }
    EXPECT_EQ(drive::openDialog(), &dialog);
}
