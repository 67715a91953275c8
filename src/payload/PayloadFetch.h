#pragma once

#include "exiftool/ToolRunner.h"
#include "payload/Payload.h"
#include "tags/TagEditContext.h"

#include <string>

namespace payload {

/// Puts the bytes of the tag's value into places.fetched: those in the file where the panel only says that
/// there are some, else the text that the panel holds. What an earlier value has left there is gone in any
/// case. Empty, or for people why the bytes are not there or not all; what came until then is there.
[[nodiscard]] std::string fetchPayload(const app::AppContext& context, exiftool::ToolRunner& runner,
                                       const tags::TagEditContext& edit, const PayloadPlaces& places);

}  // namespace payload
