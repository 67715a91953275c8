#include "sweep/ChangedValue.h"

#include "edit/DateValue.h"
#include "edit/NumberText.h"
#include "edit/PanelEdit.h"

#include <QRegularExpression>

namespace sweep {

namespace {

using tags::ValueKind;

constexpr int kStars = 6;

QString withNextNumber(const QString& text) {
    static const QRegularExpression number(QStringLiteral(R"(\d+)"));
    const QRegularExpressionMatch found = number.match(text);
    if (!found.hasMatch()) return QStringLiteral("1");
    QString changed = text;
    const qulonglong value = found.captured().toULongLong();
    return changed.replace(found.capturedStart(), found.capturedLength(), QString::number(value + 1));
}

QString nextDay(const QString& text) {
    std::optional<edit::DateValue> value = edit::readDateValue(text);
    if (!value) return QStringLiteral("2015:06:01 12:13:14");
    value->date = value->dateFields == edit::DateValue::DateFields::Year    ? value->date.addYears(1)
                  : value->dateFields == edit::DateValue::DateFields::Month ? value->date.addMonths(1)
                                                                            : value->date.addDays(1);
    if (!value->hasDate()) value->time = value->time.addSecs(60);
    return edit::dateValueText(*value);
}

bool chooseNext(const jobs::OperationParts& parts, tags::TagEditContext& edit) {
    const int count = parts.labels.GetItemNumberFromCombo(edit.tagId);
    if (count < 2) return false;
    edit.selection = (edit.selection + 1) % count;
    return parts.labels.GetLibelleCombo(edit.tagId, edit.value, edit.comboCode, edit.selection);
}

}  // namespace

bool changeValue(const jobs::OperationParts& parts, const tags::TagRecord& record,
                 tags::TagEditContext& edit) {
    switch (edit::kindOfDialog(edit, record)) {
        case ValueKind::Text:
            edit.value = parts.labels.holdsText(edit.tagId) ? edit.value + u'x' : withNextNumber(edit.value);
            return true;
        case ValueKind::Integer:
        case ValueKind::Rational:
            edit.value = withNextNumber(edit.value);
            return true;
        case ValueKind::Date:
            edit.value = nextDay(edit.value);
            return true;
        case ValueKind::Rating:
            edit.selection = (edit.value.toInt() + 1) % kStars;
            edit.value = QString::number(edit.selection);
            return true;
        case ValueKind::List:
            return chooseNext(parts, edit);
        case ValueKind::Binary:
            break;
    }
    return false;
}

}  // namespace sweep
