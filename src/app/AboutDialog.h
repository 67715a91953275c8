#pragma once

#include "app/AppContext.h"
#include "app/DarkModeDialogBase.h"

namespace app {

/// Says what the program is, its version, and which ExifTool it drives.
class AboutDialog : public DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 284;

    AboutDialog(const AppContext& context, const LanguageFile& languageFile, const QString& version,
                QWidget* parent);
};

}  // namespace app
