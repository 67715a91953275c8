#pragma once

#include "app/AppContext.h"
#include "exiftool/Outcome.h"
#include "exiftool/ToolRunner.h"
#include "platform/CommandText.h"
#include "properties/PropertyResult.h"

#include <QString>
#include <QStringView>
#include <filesystem>
#include <span>

namespace exiftool {

/// The new value in quotes. Text that came out of a file with the value before, and could end the argument,
/// stays inside it in the designed form too: a user who confirms it has not typed it.
platform::CommandText editedValue(app::CommandForm form, QStringView value, QStringView valueBefore);

/// What sets one tag, each term with a blank behind it: designed `-NAME="VALUE" `, corrected
/// `-GROUP:NAME="VALUE" `, one term for each entry where the tag holds several, and `-GROUP:NAME#="CODE" `
/// for a choice from a list. An empty value deletes: `-NAME= `.
platform::CommandText tagTerms(app::CommandForm form, const app::CurrentEdit& edit);

/// The same for several tags of one line.
platform::CommandText termsOfTags(app::CommandForm form, std::span<const app::CurrentEdit> edits);

/// The line that writes one tag: tool, terms, `-overwrite_original -charset filename=UTF8 "FILE"`; in the
/// corrected form the report takes what ExifTool has to say.
platform::CommandText writeTagCommand(const app::AppContext& context, app::CommandForm form,
                                      const std::filesystem::path& file, const app::CurrentEdit& edit);

/// Writes one tag by the road that fits its group: as a property of the file, or by ExifTool. No safety copy.
/// Blocks until the tool has ended.
Outcome WriteOneTag(const app::AppContext& context, app::CommandForm form, ToolRunner& runner,
                    const std::filesystem::path& file, const app::CurrentEdit& edit);

/// The road by ExifTool.
Outcome WriteOneTagWithExifTool(const app::AppContext& context, app::CommandForm form, ToolRunner& runner,
                                const std::filesystem::path& file, const app::CurrentEdit& edit);

/// What became of a write of a property, as an outcome of the file.
Outcome outcomeOfProperty(const std::filesystem::path& file, properties::PropertyResult result);

}  // namespace exiftool
