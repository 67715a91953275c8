#include "batch/ReportDialog.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>

namespace batch {

ReportDialog::ReportDialog(const app::LanguageFile& languageFile, const QString& text, QWidget* parent)
    : DarkModeDialogBase(languageFile, kTemplate, parent) {
    setSizeGripEnabled(true);
    if (auto* report = control<QPlainTextEdit>(kTextControl)) {
        report->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        report->setReadOnly(true);
        // Read only, a text is still gone through and selected by the keyboard.
        report->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        report->setTabChangesFocus(true);
        report->setPlainText(text);
    }
    if (auto* ok = control<QPushButton>(app::kOkControl)) ok->setFocus();
}

}  // namespace batch
