#include "edit/ValueEditor.h"

#include "edit/ValueDialogs.h"
#include "edit/WholeValue.h"

namespace edit {

jobs::EditableValue ValueEditor::editableValue(app::CommandForm form, const std::filesystem::path& file,
                                               const tags::TagRecord& tag, const QString& shown) {
    return edit::editableValue(parts_, form, file, tag, shown);
}

int ValueEditor::editValue(tags::TagEditContext& edit, tags::ValueKind kind, QWidget* parent) {
    return edit::editValue(parts_, edit, kind, parent);
}

}  // namespace edit
