#pragma once

#include "app/AppContext.h"
#include "jobs/OperationParts.h"
#include "tags/TagEditContext.h"

#include <QString>
#include <QStringView>

/// Some tags cannot hold every text: one ends at its blanks, another has no place for a control character.
/// Only ExifTool knows; so what could be such a text is written to a copy of the file first.
namespace edit {

/// Whether any tag holds this text as it is: printable ASCII without blanks at its ends, line feeds aside.
bool isPlainText(QStringView text);

/// Why the text cannot be written, a whole sentence; empty when the file holds it as it is, or when that
/// cannot be tried: no file, one of more than 64 MB, or a tag that holds no text. Blocks while ExifTool runs.
[[nodiscard]] QString refusalOfText(const jobs::OperationParts& parts, app::CommandForm form,
                                    const tags::TagEditContext& before, const tags::TagEditContext& after);

}  // namespace edit
