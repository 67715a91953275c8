#include "edit/ValueEditor.h"

#include "edit/TrialWrite.h"
#include "edit/ValueDialogs.h"

namespace edit {

QString ValueEditor::refusalOf(const tags::TagEditContext& before, const tags::TagEditContext& after) {
    // As designed nothing is refused, and nobody asks.
    return refusalOfText(parts_, app::CommandForm::Corrected, before, after);
}

int ValueEditor::editValue(tags::TagEditContext& edit, tags::ValueKind kind, QWidget* parent) {
    return edit::editValue(parts_, edit, kind, parent);
}

}  // namespace edit
