#include "jobs/DisplaySelectedFilesDialog.h"

#include "jobs/JobTexts.h"
#include "platform/Text.h"

#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>

namespace jobs {

namespace {

constexpr QSize kFirstSize(640, 420);

}  // namespace

DisplaySelectedFilesDialog::DisplaySelectedFilesDialog(const app::LanguageFile& languageFile,
                                                       const std::vector<std::filesystem::path>& files,
                                                       QWidget* parent)
    : DarkModeDialogBase(languageFile, kTemplate, parent) {
    if (!hasForm()) return;
    resize(kFirstSize);
    setSizeGripEnabled(true);
    QStringList lines;
    // One line each, whatever the name holds.
    for (const std::filesystem::path& file : files)
        lines.append(platform::display(file).replace(u'\n', QChar::ReplacementCharacter));
    const QString count = QLocale().toString(static_cast<qulonglong>(files.size()));
    control<QLabel>(kCountControl)->setText(languageFile.formatted(text::kCountOfSelected, {count}));
    auto* list = control<QPlainTextEdit>(kListControl);
    list->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    list->setTabChangesFocus(true);
    list->setPlainText(lines.join(u'\n'));
    list->setFocus();
}

}  // namespace jobs
