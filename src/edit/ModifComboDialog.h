#pragma once

#include "edit/ValueDialog.h"

namespace edit {

/// A choice from the values of the tag's list.
class ModifComboDialog : public ValueDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 135;

    ModifComboDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, QWidget* parent);

    void accept() override;
};

}  // namespace edit
