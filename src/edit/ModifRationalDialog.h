#pragma once

#include "edit/NumberDialog.h"

namespace edit {

/// A rational number. In the corrected form it takes the place of the old value, and text that is none is
/// refused.
class ModifRationalDialog : public NumberDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 147;

    ModifRationalDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, QWidget* parent);

 protected:
    std::optional<QString> valueOf(const QString& typed) override;
};

}  // namespace edit
