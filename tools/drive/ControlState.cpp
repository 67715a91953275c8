#include "drive/ControlState.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSpinBox>
#include <QTextEdit>
#include <QtTest/QTest>

namespace drive {

namespace {

QString textOf(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return QString(button->text()).remove(u'&');
    if (const auto* edit = qobject_cast<const QLineEdit*>(&control)) return edit->text();
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&control)) return edit->toPlainText();
    if (const auto* edit = qobject_cast<const QTextEdit*>(&control)) return edit->toPlainText();
    if (const auto* combo = qobject_cast<const QComboBox*>(&control)) return combo->currentText();
    if (const auto* dates = qobject_cast<const QDateTimeEdit*>(&control))
        return dates->dateTime().toString(Qt::ISODate);
    if (const auto* bar = qobject_cast<const QProgressBar*>(&control)) return bar->text();
    return control.windowTitle();
}

QJsonArray rowsOf(const QAbstractItemModel& model) {
    QJsonArray rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells.append(model.index(row, column).data().toString());
        QJsonObject described{{"cells", cells}};
        const QVariant state = model.index(row, 0).data(Qt::CheckStateRole);
        if (state.isValid()) described["checked"] = state.toInt() == Qt::Checked;
        rows.append(described);
    }
    return rows;
}

}  // namespace

QJsonObject describeControl(const QWidget& control, int id) {
    QJsonObject described{{"id", id},
                          {"class", control.metaObject()->className()},
                          {"text", textOf(control)},
                          {"enabled", control.isEnabled()},
                          {"visible", control.isVisible()}};
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control);
        button != nullptr && button->isCheckable())
        described["checked"] = button->isChecked();
    if (const auto* number = qobject_cast<const QSpinBox*>(&control)) described["value"] = number->value();
    if (const auto* slider = qobject_cast<const QAbstractSlider*>(&control))
        described["value"] = slider->value();
    if (const auto* combo = qobject_cast<const QComboBox*>(&control)) {
        QJsonArray items;
        for (int row = 0; row < combo->count(); ++row) items.append(combo->itemText(row));
        described["items"] = items;
        described["row"] = combo->currentIndex();
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&control);
        view != nullptr && view->model() != nullptr) {
        described["items"] = rowsOf(*view->model());
        described["row"] = view->currentIndex().row();
    }
    return described;
}

Answer setControlState(QWidget& control, const QString& value) {
    if (!control.isEnabled()) return Answer::failed(QStringLiteral("the control is disabled"));
    control.setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(&control)) {
        edit->selectAll();
        edit->insert(value);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(&control)) {
        plain->selectAll();
        plain->insertPlainText(value);
    } else if (auto* rich = qobject_cast<QTextEdit*>(&control)) {
        rich->selectAll();
        rich->insertPlainText(value);
    } else if (auto* combo = qobject_cast<QComboBox*>(&control)) {
        const int row = value.startsWith(u'#') ? value.mid(1).toInt() : combo->findText(value);
        if (row < 0 && combo->isEditable())
            combo->setEditText(value);
        else if (row < 0 || row >= combo->count())
            return Answer::failed(QStringLiteral("the list has no entry \"%1\"").arg(value));
        else
            combo->setCurrentIndex(row);
    } else if (auto* button = qobject_cast<QAbstractButton*>(&control);
               button != nullptr && button->isCheckable()) {
        if (button->isChecked() != (value == u"1")) QTest::mouseClick(button, Qt::LeftButton);
    } else if (auto* number = qobject_cast<QSpinBox*>(&control)) {
        number->setValue(value.toInt());
    } else if (auto* dates = qobject_cast<QDateTimeEdit*>(&control)) {
        dates->setDateTime(QDateTime::fromString(value, Qt::ISODate));
    } else if (auto* slider = qobject_cast<QAbstractSlider*>(&control)) {
        slider->setValue(value.toInt());
    } else if (auto* view = qobject_cast<QAbstractItemView*>(&control)) {
        view->setCurrentIndex(view->model()->index(value.toInt(), 0));
    } else {
        return Answer::failed(QStringLiteral("the control takes no value"));
    }
    return {};
}

Answer setRowChecked(QWidget& control, int row, bool checked) {
    auto* view = qobject_cast<QAbstractItemView*>(&control);
    if (view == nullptr || view->model() == nullptr)
        return Answer::failed(QStringLiteral("the control is no list"));
    const QModelIndex index = view->model()->index(row, 0);
    if (!index.isValid()) return Answer::failed(QStringLiteral("the list has no row %1").arg(row));
    if (!view->model()->setData(index, checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole))
        return Answer::failed(QStringLiteral("the row has no check box"));
    return {};
}

}  // namespace drive
