#include "window/ToolChoice.h"

#include "app/StartUp.h"
#include "app/TextNumbers.h"
#include "dialogs/Messages.h"
#include "platform/Text.h"
#include "window/WindowTexts.h"

#include <QFileDialog>

namespace window {

namespace {

void tell(QWidget* parent, const app::LanguageFile& language, int text, const QString& value) {
    dialogs::showMessage(
        parent, {language.valid() ? language.formatted(text, {value}) : value, dialogs::MessageIcon::Stop});
}

}  // namespace

bool chooseAnotherExifTool(QWidget* parent, app::AppContext& context, const app::LanguageFile& language,
                           const QString& problem) {
    tell(parent, language, text::kExifToolNotStarted, problem);
    const QString chosen = QFileDialog::getOpenFileName(
        parent, QStringLiteral("ExifTool"), platform::display(context.exifToolPath.parent_path()));
    if (chosen.isEmpty()) return false;
    const QString notKept = app::chooseExifTool(context, platform::pathFromText(chosen));
    if (!notKept.isEmpty()) tell(parent, language, app::text::kSettingsNotSaved, notKept);
    return true;
}

}  // namespace window
