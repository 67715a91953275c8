#pragma once

#include "edit/ValueDialog.h"

namespace edit {

/// A rational number. In the corrected form it takes the place of the old value, and text that is none is
/// refused.
class ModifRationalDialog : public ValueDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 147;

    ModifRationalDialog(const EditParts& parts, TagEditContext& edit, QWidget* parent);

    void accept() override;
};

}  // namespace edit
