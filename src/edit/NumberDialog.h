#pragma once

#include "edit/ValueDialog.h"

#include <optional>

namespace edit {

/// What the dialogs for numbers have in common: one field, and text that is no such number is refused while
/// the dialog stays open.
class NumberDialog : public ValueDialog {
    Q_OBJECT

 public:
    /// refusal: the number of the text that says why; its "%s" is what was typed.
    NumberDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, int templateNumber,
                 int refusal, QWidget* parent);

    void accept() override;

 protected:
    /// The new value for what was typed; nothing when it is no such number.
    virtual std::optional<QString> valueOf(const QString& typed) = 0;

 private:
    int refusal_;
};

}  // namespace edit
