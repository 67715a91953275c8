#pragma once

#include "edit/EditParts.h"
#include "edit/TagEditContext.h"

class QWidget;

namespace edit {

/// Shows the dialog that fits the kind of value, modally over the parent. 1 when edit holds a new value, 0
/// when the user cancelled or the kind has no editor (binary, or a number that is no kind).
int EditValue(const EditParts& parts, TagEditContext& edit, tags::ValueKind kind, QWidget* parent);

}  // namespace edit
