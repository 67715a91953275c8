#pragma once

#include "app/AppContext.h"
#include "jobs/OperationParts.h"
#include "platform/CommandText.h"

#include <QStringView>
#include <filesystem>
#include <vector>

/// A panel row shows a value on one line: control characters stand there as dots, blanks at the end are
/// missing, and the entries of a list have commas between them. Before a value is edited, it has to be read.
namespace edit {

/// `"TOOL" -lang LANG -a -S -G1 -ec -sep "SEPARATOR" -charset filename=UTF8 -GROUP:NAME -GROUP:NAME-* "FILE"
/// >"OUTPUT"`.
platform::CommandText wholeValueCommand(const app::AppContext& context, app::CommandForm form,
                                        const std::filesystem::path& file,
                                        const std::filesystem::path& output, QStringView group,
                                        QStringView name);

/// Whether a row of this name is the text of the tag in one of its languages.
bool isTranslation(QStringView name, const tags::TagRecord& tag);

/// What a file holds of one tag.
struct HeldValues {
    std::vector<QStringList> entries;  ///< of each time that the tag stands in the group
    std::vector<app::Translation> translations;
    QString fault;  ///< why it could not be read, for people
};

/// Blocks while ExifTool runs.
[[nodiscard]] HeldValues readValues(const jobs::OperationParts& parts, app::CommandForm form,
                                    const std::filesystem::path& file, QStringView group, QStringView name);

/// A value to be edited, or why it cannot be. A read that failed or was cut is a fault: to write back what a
/// row shows could destroy the rest.
struct EditableValue {
    QString text;
    bool severalEntries = false;                 ///< one entry a line, as tags::joinEntries makes it
    std::vector<app::Translation> translations;  ///< that a write of this one would delete
    QString fault;                               ///< the value could not be read
    QString refusal;  ///< it can only be changed together with others; a whole sentence
};

/// The value that is edited for a row of the panel, which shows the tag under this name. In the designed form
/// the shown text itself, and so where the file has the tag no longer.
[[nodiscard]] EditableValue editableValue(const jobs::OperationParts& parts, app::CommandForm form,
                                          const std::filesystem::path& file, const tags::TagRecord& tag,
                                          const QString& name, const QString& shown);

}  // namespace edit
