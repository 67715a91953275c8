#pragma once

#include "edit/Payload.h"
#include "edit/TagEditContext.h"
#include "exiftool/ToolRunner.h"

namespace edit {

/// Puts the bytes of the tag's value into places.fetched: those in the file where the panel only says that
/// there are some, else the text that the panel holds. What an earlier value has left there is gone in any
/// case. False when ExifTool was not run, or the wait was stopped; whatever came before that is there.
bool FetchPayload(const app::AppContext& context, exiftool::ToolRunner& runner, const TagEditContext& edit,
                  const PayloadPlaces& places);

}  // namespace edit
