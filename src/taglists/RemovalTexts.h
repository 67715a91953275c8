#pragma once

#include "app/LanguageFile.h"
#include "exiftool/Outcome.h"
#include "taglists/TagListTexts.h"

#include <QString>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace taglists {

/// What a family removal asks before it begins: what goes, and from how many files. Nothing for a command
/// that removes no family.
std::optional<QString> familyRemovalQuestion(const app::LanguageFile& language, int commandId,
                                             std::size_t files);

/// The title of a family removal while it runs; the same texts without the question mark.
QString familyRemovalTitle(const app::LanguageFile& language, int commandId, std::size_t files);

/// What RemoveDialogTypes says at its end. remarks: of the job.
QString typesRemovedText(const app::LanguageFile& language, std::span<const exiftool::Outcome> outcomes,
                         std::span<const std::string> remarks);

}  // namespace taglists
