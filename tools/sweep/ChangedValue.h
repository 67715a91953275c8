#pragma once

#include "jobs/OperationParts.h"
#include "tags/TagDictionary.h"
#include "tags/TagEditContext.h"

namespace sweep {

/// Another value than the present one of the same form, as a user would leave it in the dialog: the next
/// entry of a list, the next day, one more, a letter behind a text. False when there is none.
bool changeValue(const jobs::OperationParts& parts, const tags::TagRecord& record,
                 tags::TagEditContext& edit);

}  // namespace sweep
