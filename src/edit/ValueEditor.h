#pragma once

#include "jobs/OperationParts.h"
#include "jobs/ValueEditing.h"

namespace edit {

/// The value dialogs for those who stand beside them.
class ValueEditor : public jobs::ValueEditing {
 public:
    explicit ValueEditor(const jobs::OperationParts& parts) : parts_(parts) {}

    jobs::EditableValue editableValue(app::CommandForm form, const std::filesystem::path& file,
                                      const tags::TagRecord& tag, const QString& shown) override;
    int editValue(tags::TagEditContext& edit, tags::ValueKind kind, QWidget* parent) override;

 private:
    jobs::OperationParts parts_;
};

}  // namespace edit
