#include "edit/ModifStringDialog.h"

#include "controls/ExactTextEdit.h"
#include "edit/EditControls.h"
#include "edit/EditTexts.h"
#include "edit/TrialWrite.h"
#include "tags/Entries.h"

#include <QKeyEvent>

namespace edit {

using controls::ExactTextEdit;

static_assert(ExactTextEdit::kLiteral == tags::kLiteral && ExactTextEdit::kNoText == tags::kNoText);

namespace {

/// Whether each of its lines ends as on another system: such an end shows as one.
bool endsLinesWithReturns(const QString& text) {
    const qsizetype returns = text.count(u'\r');
    return returns > 0 && returns == text.count(u'\n') && returns == text.count(u"\r\n");
}

}  // namespace

ModifStringDialog::ModifStringDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit,
                                     QWidget* parent)
    : ValueDialog(parts, edit, kTemplate, parent), before_(edit) {
    if (!hasForm()) return;
    field_ = ExactTextEdit::inPlaceOf(*control<QPlainTextEdit>(control::kText));
    withReturns_ = !edit.severalEntries && endsLinesWithReturns(edit.value);
    QString text = edit.severalEntries ? edit.value : ExactTextEdit::literal(edit.value);
    if (withReturns_) text.remove(u'\r');
    field_->setExactText(text);
    field_->selectAll();
    field_->installEventFilter(this);
    field_->setFocus();
    QString hint = parts.language.text(edit.severalEntries ? text::kEntryLines : text::kNewLine);
    if (field_->hasMarks()) hint += u'\n' + parts.language.text(text::kMarks);
    showHint(hint);
}

bool ModifStringDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != field_ || event->type() != QEvent::KeyPress)
        return ValueDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
    if ((key->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0)
        field_->textCursor().insertBlock();
    else
        accept();
    return true;
}

void ModifStringDialog::accept() {
    // Text that nobody touched stays as it was read.
    if (field_->document()->isModified()) {
        QString text = field_->exactText();
        if (!edit().severalEntries) text = ExactTextEdit::bare(text);
        if (withReturns_) text.replace(u'\n', QStringLiteral("\r\n"));
        tags::TagEditContext after = edit();
        after.value = text;
        const QString refusal =
            text == before_.value ? QString() : refusalOfText(parts(), form(), before_, after);
        if (!refusal.isEmpty()) {
            showHint(refusal, HintKind::Refusal);
            field_->setFocus();
            return;
        }
        edit().value = text;
    }
    ValueDialog::accept();
}

}  // namespace edit
