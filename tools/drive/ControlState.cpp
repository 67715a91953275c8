#include "drive/ControlState.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
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
    if (const auto* date = qobject_cast<const QDateEdit*>(&control))
        return date->date().toString(Qt::ISODate);
    if (const auto* time = qobject_cast<const QTimeEdit*>(&control))
        return time->time().toString(Qt::ISODate);
    if (const auto* dates = qobject_cast<const QDateTimeEdit*>(&control))
        return dates->dateTime().toString(Qt::ISODate);
    if (const auto* bar = qobject_cast<const QProgressBar*>(&control)) return bar->text();
    // Views that paint their rows themselves.
    if (const QVariant text = control.property("text"); text.isValid()) return text.toString();
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

bool isReadOnly(const QWidget& control) {
    if (const auto* edit = qobject_cast<const QLineEdit*>(&control)) return edit->isReadOnly();
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&control)) return edit->isReadOnly();
    if (const auto* edit = qobject_cast<const QTextEdit*>(&control)) return edit->isReadOnly();
    if (const auto* box = qobject_cast<const QAbstractSpinBox*>(&control)) return box->isReadOnly();
    return false;
}

/// False when it is no edit of text.
bool setText(QWidget& control, const QString& text) {
    if (auto* edit = qobject_cast<QLineEdit*>(&control)) {
        edit->selectAll();
        edit->insert(text);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(&control)) {
        plain->selectAll();
        plain->insertPlainText(text);
    } else if (auto* rich = qobject_cast<QTextEdit*>(&control)) {
        rich->selectAll();
        rich->insertPlainText(text);
    } else {
        return false;
    }
    return true;
}

Answer chooseInCombo(QComboBox& combo, const QString& value) {
    bool isRow = false;
    const int number = value.startsWith(u'#') ? value.mid(1).toInt(&isRow) : -1;
    const int row = isRow ? number : combo.findText(value, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (row < 0 && combo.isEditable()) {
        combo.setEditText(value);
        return {};
    }
    if (row < 0 || row >= combo.count())
        return Answer::failed(QStringLiteral("the list has no entry \"%1\"").arg(value));
    combo.setCurrentIndex(row);
    // A user's choice, which the program may follow up.
    Q_EMIT combo.activated(row);
    Q_EMIT combo.textActivated(combo.itemText(row));
    return {};
}

Answer tick(QAbstractButton& button, const QString& value) {
    const bool wanted = value == u"1";
    if (!wanted && value != u"0")
        return Answer::failed(QStringLiteral("\"%1\" is neither 0 nor 1").arg(value));
    if (button.isChecked() != wanted) QTest::keyClick(&button, Qt::Key_Space);
    if (button.isChecked() != wanted)
        return Answer::failed(QStringLiteral("the button cannot be set to %1").arg(value));
    return {};
}

Answer setMoment(QDateTimeEdit& edit, const QString& value) {
    const QDate date = QDate::fromString(value.section(u'T', 0, 0), Qt::ISODate);
    const QTime time = QTime::fromString(value.contains(u'T') ? value.section(u'T', 1) : value, Qt::ISODate);
    if (!date.isValid() && !time.isValid())
        return Answer::failed(QStringLiteral("\"%1\" is no date or time").arg(value));
    if (date.isValid()) edit.setDate(date);
    if (time.isValid()) edit.setTime(time);
    return {};
}

Answer setNumber(QWidget& control, const QString& value) {
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber) return Answer::failed(QStringLiteral("\"%1\" is no number").arg(value));
    if (auto* box = qobject_cast<QSpinBox*>(&control)) box->setValue(static_cast<int>(number));
    if (auto* box = qobject_cast<QDoubleSpinBox*>(&control)) box->setValue(number);
    if (auto* slider = qobject_cast<QAbstractSlider*>(&control)) slider->setValue(static_cast<int>(number));
    return {};
}

Answer noSuchRow(const QString& row) {
    return Answer::failed(QStringLiteral("the list has no row \"%1\"").arg(row));
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
    if (isReadOnly(control)) described["readOnly"] = true;
    if (const auto* number = qobject_cast<const QSpinBox*>(&control)) described["value"] = number->value();
    if (const auto* number = qobject_cast<const QDoubleSpinBox*>(&control))
        described["value"] = number->value();
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
    if (!control.isVisible()) return Answer::failed(QStringLiteral("the control is not shown"));
    if (isReadOnly(control)) return Answer::failed(QStringLiteral("the control is read-only"));
    control.setFocus();
    if (setText(control, value)) return {};
    if (auto* combo = qobject_cast<QComboBox*>(&control)) return chooseInCombo(*combo, value);
    if (auto* button = qobject_cast<QAbstractButton*>(&control); button != nullptr && button->isCheckable())
        return tick(*button, value);
    if (auto* dates = qobject_cast<QDateTimeEdit*>(&control)) return setMoment(*dates, value);
    if (qobject_cast<QSpinBox*>(&control) != nullptr || qobject_cast<QDoubleSpinBox*>(&control) != nullptr ||
        qobject_cast<QAbstractSlider*>(&control) != nullptr)
        return setNumber(control, value);
    if (auto* view = qobject_cast<QAbstractItemView*>(&control);
        view != nullptr && view->model() != nullptr) {
        const int row = rowNamed(*view->model(), value);
        if (row < 0) return noSuchRow(value);
        view->setCurrentIndex(view->model()->index(row, 0));
        return {};
    }
    return Answer::failed(QStringLiteral("the control takes no value"));
}

int rowNamed(const QAbstractItemModel& model, const QString& name) {
    const auto cell = [&](int row, int column) { return model.index(row, column).data().toString(); };
    for (int row = 0; row < model.rowCount(); ++row)
        if (cell(row, 0) == name || cell(row, 1) + u':' + cell(row, 0) == name) return row;
    bool isNumber = false;
    const int number = name.toInt(&isNumber);
    return isNumber && number >= 0 && number < model.rowCount() ? number : -1;
}

Answer setRowChecked(QWidget& control, const QString& row, bool checked) {
    auto* view = qobject_cast<QAbstractItemView*>(&control);
    if (view == nullptr || view->model() == nullptr)
        return Answer::failed(QStringLiteral("the control is no list"));
    if (!view->isEnabled()) return Answer::failed(QStringLiteral("the control is disabled"));
    const int number = rowNamed(*view->model(), row);
    if (number < 0) return noSuchRow(row);
    const QModelIndex index = view->model()->index(number, 0);
    view->setCurrentIndex(index);
    if (!index.flags().testFlag(Qt::ItemIsUserCheckable) ||
        !view->model()->setData(index, checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole))
        return Answer::failed(QStringLiteral("the row has no check box"));
    return {};
}

}  // namespace drive
