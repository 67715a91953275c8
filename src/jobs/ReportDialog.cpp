#include "jobs/ReportDialog.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>

namespace jobs {

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
    if (auto* ok = control<QPushButton>(dialogs::kOkControl)) {
        ok->setDefault(true);
        ok->setFocus();
    }
}

}  // namespace jobs
