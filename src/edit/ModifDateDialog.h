#pragma once

#include "edit/DateValue.h"
#include "edit/ValueDialog.h"

namespace edit {

/// A date and a time of day. In the corrected form only the parts that the value has can be changed, and a
/// fraction of the second and a zone stay behind it; a value that is no date stays until one is chosen.
class ModifDateDialog : public ValueDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 185;

    ModifDateDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, QWidget* parent);

    void accept() override;

 private:
    void setDesigned();
    void setCorrected();
    void showKept();
    void setNow();

    DateValue value_;
    bool keepsText_ = false;
};

}  // namespace edit
