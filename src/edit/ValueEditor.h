#pragma once

#include "jobs/OperationParts.h"
#include "jobs/ValueEditing.h"

namespace edit {

/// The value dialogs for those who stand beside them.
class ValueEditor : public jobs::ValueEditing {
 public:
    explicit ValueEditor(const jobs::OperationParts& parts) : parts_(parts) {}

    int editValue(tags::TagEditContext& edit, tags::ValueKind kind, QWidget* parent) override;
    QString refusalOf(const tags::TagEditContext& before, const tags::TagEditContext& after) override;

 private:
    jobs::OperationParts parts_;
};

}  // namespace edit
