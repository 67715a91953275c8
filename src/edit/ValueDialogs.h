#pragma once

#include "jobs/OperationParts.h"
#include "tags/TagEditContext.h"

class QWidget;

namespace edit {

/// Shows the dialog that fits the kind of value, modally over the parent. 1 when edit holds a new value, 0
/// when the user cancelled or the kind has no editor (binary, or a number that is no kind).
int editValue(const jobs::OperationParts& parts, tags::TagEditContext& edit, tags::ValueKind kind,
              QWidget* parent);

}  // namespace edit
