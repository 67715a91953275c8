#pragma once

#include "edit/NumberDialog.h"

namespace edit {

/// A whole number. In the corrected form text that is none is refused and the dialog stays open.
class ModifIntDialog : public NumberDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 133;

    ModifIntDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, QWidget* parent);

 protected:
    std::optional<QString> valueOf(const QString& typed) override;
};

}  // namespace edit
