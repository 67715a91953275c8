#include "edit/ModifStringDialog.h"

#include "edit/EditControls.h"
#include "edit/EditTexts.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace edit {

namespace {

/// The text with the separators of lines within an entry, which toPlainText() takes for ends of lines.
QString textOf(const QPlainTextEdit& field) {
    QStringList lines;
    for (QTextBlock block = field.document()->firstBlock(); block.isValid(); block = block.next())
        lines.append(block.text());
    return lines.join(u'\n');
}

}  // namespace

ModifStringDialog::ModifStringDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit,
                                     QWidget* parent)
    : ValueDialog(parts, edit, kTemplate, parent) {
    auto* field = control<QPlainTextEdit>(control::kText);
    if (field == nullptr) return;
    field->setPlainText(edit.value);
    field->selectAll();
    field->installEventFilter(this);
    field->setFocus();
    const bool several = form() == app::CommandForm::Corrected && parts.labels.takesSeveralValues(edit.tagId);
    showHint(parts.language.text(several ? text::kEntryLines : text::kNewLine));
}

bool ModifStringDialog::eventFilter(QObject* watched, QEvent* event) {
    auto* field = control<QPlainTextEdit>(control::kText);
    if (watched != field || event->type() != QEvent::KeyPress)
        return ValueDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
    if ((key->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0)
        field->textCursor().insertBlock();
    else
        accept();
    return true;
}

void ModifStringDialog::accept() {
    const auto* field = control<QPlainTextEdit>(control::kText);
    // The field knows one end of a line only; text that nobody touched keeps its own.
    if (field->document()->isModified()) {
        const bool withReturns = edit().value.contains(u"\r\n");
        edit().value = textOf(*field);
        if (withReturns) edit().value.replace(u'\n', QStringLiteral("\r\n"));
    }
    ValueDialog::accept();
}

}  // namespace edit
