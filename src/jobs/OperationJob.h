#pragma once

#include "jobs/Job.h"
#include "jobs/Operation.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What an operation makes of a filled form, without any widget.
namespace jobs {

/// Why a filled form cannot be carried out.
struct OperationRefusal {
    int control = 0;    ///< that is to be filled; 0: none in particular
    QString text = {};  ///< empty: nothing is said
    OperationMessage::Icon icon = OperationMessage::Icon::Warning;
    QString title = {};    ///< empty: the program's name
    bool cancels = false;  ///< the dialog ends as if it had been cancelled
};

/// The first thing that is missing: a field in the order of the fields, then the boxes. Asks the file system
/// of the paths that a field has conditions for.
std::optional<OperationRefusal> refusalOf(const Operation& operation, const FilledForm& filled,
                                          const app::LanguageFile& language);

/// The message about a control; held: what stands there.
OperationRefusal refused(const OperationMessage& message, int control, const QString& held,
                         const app::LanguageFile& language);

/// The bytes of a text field as the form reads it: UTF-8, or what the designed form leaves of it.
std::string textOf(const OperationField& field, app::CommandForm form, const FilledForm& filled);

/// The terms of the ticked boxes, in the order of the boxes. A value of the user's is typed in the designed
/// form, where a quote in it ends its argument, and stays inside its argument in the corrected one.
platform::CommandText boxTerms(const Operation& operation, const Composing& composing);

/// The operation on the files. Composes nothing yet; keeps a copy of the dictionary. GUI thread.
Job jobOf(const Operation& operation, const QString& title, app::CommandForm form, const FilledForm& filled,
          std::vector<std::filesystem::path> files, const tags::TagDictionary& dictionary);

}  // namespace jobs
