#include "batch/ReportDialog.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>

namespace batch {

namespace {

constexpr QSize kFirstSize(760, 420);

}  // namespace

ReportDialog::ReportDialog(const app::LanguageFile& languageFile, const QString& text, QWidget* parent)
    : DarkModeDialogBase(languageFile, kTemplate, parent) {
    resize(kFirstSize);
    setSizeGripEnabled(true);
    if (auto* report = control<QPlainTextEdit>(kTextControl)) {
        report->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        report->setReadOnly(true);
        // Read only, a text is still gone through and selected by the keyboard.
        report->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        report->setTabChangesFocus(true);
        report->setPlainText(text);
    }
    if (auto* ok = control<QPushButton>(app::kOkControl)) {
        ok->setDefault(true);
        ok->setFocus();
    }
}

}  // namespace batch
