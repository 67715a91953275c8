#include "window/AboutDialog.h"

#include "app/TextNumbers.h"
#include "platform/Text.h"

#include <QLabel>

namespace window {

namespace {

enum Control { kProgramIcon = 28400, kVersion = 28402, kExifTool = 28403 };
constexpr int kIconSize = 64;

}  // namespace

AboutDialog::AboutDialog(const app::AppContext& context, const app::LanguageFile& languageFile,
                         const QString& version, QWidget* parent)
    : dialogs::DarkModeDialogBase(languageFile, kTemplate, parent) {
    if (auto* icon = control<QLabel>(kProgramIcon))
        icon->setPixmap(windowIcon().pixmap(kIconSize, kIconSize));
    if (auto* label = control<QLabel>(kVersion))
        label->setText(languageFile.formatted(app::text::kAboutVersion, {version}));
    if (auto* label = control<QLabel>(kExifTool)) {
        label->setTextFormat(Qt::PlainText);
        label->setText(
            languageFile.formatted(app::text::kAboutExifTool, {platform::display(context.exifToolPath)}));
    }
}

}  // namespace window
