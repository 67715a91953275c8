#pragma once

#include "jobs/OperationParts.h"
#include "jobs/ValueEditing.h"
#include "platform/CommandText.h"

#include <QStringList>
#include <QStringView>
#include <filesystem>

/// A panel row shows a value on one line: line feeds stand there as dots, and the entries of a list with
/// commas between them. Before such text is edited, the value itself has to be read.
namespace edit {

/// Whether the text of a row could stand for something else.
bool couldBeShortened(QStringView shown, bool severalValues);

/// `"TOOL" -lang LANG -b -sep "SEPARATOR" -charset filename=UTF8 -GROUP:NAME "FILE" >"OUTPUT"`.
platform::CommandText wholeValueCommand(const app::AppContext& context, app::CommandForm form,
                                        const std::filesystem::path& file,
                                        const std::filesystem::path& output, QStringView group,
                                        QStringView name);

/// The entries of that output; one for a tag that holds no list.
QStringList entriesOfOutput(const QByteArray& output);

/// The value that is edited for a row of the panel: one entry a line for a tag that holds several, with its
/// line feeds for another. The shown text itself where it tells all, in the designed form, and where the file
/// no longer answers what is shown. Blocks while ExifTool runs, if it has to be asked.
/// A read that failed or was cut is a fault: to write back what a row shows could destroy the rest.
[[nodiscard]] jobs::EditableValue editableValue(const jobs::OperationParts& parts, app::CommandForm form,
                                                const std::filesystem::path& file, const tags::TagRecord& tag,
                                                const QString& shown);

}  // namespace edit
