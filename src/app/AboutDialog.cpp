#include "app/AboutDialog.h"

#include "app/TextNumbers.h"
#include "platform/Text.h"

#include <QLabel>

namespace app {

namespace {

enum Control { kProgramIcon = 28400, kVersion = 28402, kExifTool = 28403 };
constexpr int kIconSize = 64;

}  // namespace

AboutDialog::AboutDialog(const AppContext& context, const LanguageFile& languageFile, const QString& version,
                         QWidget* parent)
    : DarkModeDialogBase(languageFile, kTemplate, parent) {
    if (auto* icon = control<QLabel>(kProgramIcon))
        icon->setPixmap(windowIcon().pixmap(kIconSize, kIconSize));
    if (auto* label = control<QLabel>(kVersion))
        label->setText(languageFile.formatted(text::kAboutVersion, {version}));
    if (auto* label = control<QLabel>(kExifTool)) {
        label->setTextFormat(Qt::PlainText);
        label->setText(
            languageFile.formatted(text::kAboutExifTool, {platform::display(context.exifToolPath)}));
    }
}

}  // namespace app
