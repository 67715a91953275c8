#pragma once

#include <QTranslator>
#include <memory>

namespace dialogs {

/// What Qt itself says, such as the buttons of a message box, in the language of a language file's number
/// (the four of app/ProgressTexts.h). Null where Qt's translations are not installed. The application speaks
/// it as long as it lives; GUI thread.
std::unique_ptr<QTranslator> speakQtTexts(int language);

}  // namespace dialogs
