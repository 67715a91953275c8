#pragma once

#include "app/AppContext.h"
#include "dialogs/DarkModeDialogBase.h"

namespace window {

/// Says what the program is, its version, and which ExifTool it drives.
class AboutDialog : public dialogs::DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 284;

    AboutDialog(const app::AppContext& context, const app::LanguageFile& languageFile, const QString& version,
                QWidget* parent);
};

}  // namespace window
