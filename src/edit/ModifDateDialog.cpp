#include "edit/ModifDateDialog.h"

#include "edit/EditControls.h"
#include "edit/EditTexts.h"

#include <QDateEdit>
#include <QDateTime>
#include <QPushButton>
#include <QTimeEdit>

namespace edit {

namespace {

constexpr const char* kDateFormats[] = {"yyyy-MM-dd", "yyyy", "yyyy-MM", "yyyy-MM-dd"};
constexpr const char* kTimeFormats[] = {"HH:mm:ss", "HH:mm", "HH:mm:ss"};

}  // namespace

ModifDateDialog::ModifDateDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit,
                                 QWidget* parent)
    : ValueDialog(parts, edit, kTemplate, parent) {
    if (!hasForm()) return;
    auto* date = control<QDateEdit>(control::kDate);
    auto* time = control<QTimeEdit>(control::kTime);
    date->setDateRange(QDate(1, 1, 1), QDate(9999, 12, 31));
    value_.date = QDate::currentDate();
    value_.time = QTime::currentTime();
    if (form() == app::CommandForm::Corrected)
        setCorrected();
    else
        setDesigned();
    date->setDisplayFormat(QLatin1String(kDateFormats[static_cast<std::size_t>(value_.dateFields)]));
    time->setDisplayFormat(QLatin1String(kTimeFormats[static_cast<std::size_t>(value_.timeFields)]));
    date->setDate(value_.date);
    time->setTime(value_.time);
    date->setVisible(value_.hasDate());
    time->setVisible(value_.hasTime());
    const auto chosen = [this] { keepsText_ = false; };
    connect(date, &QDateEdit::dateChanged, this, chosen);
    connect(time, &QTimeEdit::timeChanged, this, chosen);
    connect(control<QPushButton>(control::kNow), &QPushButton::clicked, this, &ModifDateDialog::setNow);
    QDateTimeEdit* first = value_.hasDate() ? static_cast<QDateTimeEdit*>(date) : time;
    first->setFocus();
    first->selectAll();
}

void ModifDateDialog::setDesigned() {
    if (edit().value.isEmpty()) return;
    if (const auto moment = cutDateByPosition(edit().value)) {
        value_.date = moment->date;
        value_.time = moment->time;
    }
}

void ModifDateDialog::setCorrected() {
    if (edit().value.isEmpty()) return;
    if (const auto value = readDateValue(edit().value)) {
        value_ = *value;
        showKept();
        return;
    }
    keepsText_ = true;
    showHint(parts().language.formatted(text::kNoDate, {edit().value}));
}

void ModifDateDialog::showKept() {
    const QString kept = value_.fraction + value_.zone;
    if (!kept.isEmpty()) showHint(parts().language.formatted(text::kKeptOfTime, {kept}));
}

void ModifDateDialog::setNow() {
    const QDateTime now = QDateTime::currentDateTime();
    control<QDateEdit>(control::kDate)->setDate(now.date());
    control<QTimeEdit>(control::kTime)->setTime(now.time());
    keepsText_ = false;
    if (form() == app::CommandForm::Designed) return;
    setFractionAndZone(value_, now);
    showKept();
}

void ModifDateDialog::accept() {
    DateValue value = value_;
    value.date = control<QDateEdit>(control::kDate)->date();
    value.time = control<QTimeEdit>(control::kTime)->time();
    edit().fileTime = localMoment(value.date, value.time);
    if (form() == app::CommandForm::Designed)
        edit().value = joinDateAndTime(value.date, value.time);
    else if (!keepsText_)
        edit().value = dateValueText(value);
    ValueDialog::accept();
}

}  // namespace edit
