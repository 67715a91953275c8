#pragma once

#include <QString>
#include <cstddef>
#include <optional>

/// What ProgressDialog says, in the four languages that are compiled in, since it stands on the screen before
/// any language file is loaded. A language is the number of a language file; its low ten bits name the
/// language: 7 German, 10 Spanish, 12 French, everything else English.
namespace app {

/// The numbers by which the dialog is told what the program is doing.
enum class ProgressStep {
    Sorting = 1152,
    ExtractingThumbnail = 1153,
    Initializing = 1154,
    Reading = 1155,
};

/// The text of a step; fileName (with its extension) is used by Reading only.
QString progressText(int language, ProgressStep step, const QString& fileName = {});

/// The step of a number; none for any other number.
std::optional<ProgressStep> progressStepOf(int number);

/// The label of the button that ends a wait.
QString stopWaitingText(int language);

/// Where an operation over several files is: the name, the number of the file counted from 1, of how many.
QString fileCountText(const QString& fileName, std::size_t number, std::size_t count);

/// "en", "fr", "de" or "es".
QString languageCode(int language);

/// Said once the window is to close and the running file is waited for.
QString closingText(int language);

}  // namespace app
