#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"

class QWidget;

namespace window {

/// Tells why the ExifTool of the settings cannot be used (problem, for people) and asks for another one,
/// which becomes that of the context and of the settings; one that cannot be kept is told. False when none
/// was chosen. The language file may be the one that is missing. GUI thread.
[[nodiscard]] bool chooseAnotherExifTool(QWidget* parent, app::AppContext& context,
                                         const app::LanguageFile& language, const QString& problem);

}  // namespace window
