#pragma once

#include "edit/ValueDialog.h"

namespace edit {

/// A whole number. In the corrected form text that is none is refused and the dialog stays open.
class ModifIntDialog : public ValueDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 133;

    ModifIntDialog(const EditParts& parts, TagEditContext& edit, QWidget* parent);

    void accept() override;
};

}  // namespace edit
