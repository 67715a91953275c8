#pragma once

#include "edit/ValueDialog.h"

namespace edit {

/// None to five stars. The corrected form begins with the rating that the value has, the designed one with
/// the last that was read for this tag.
class ModifRatingDialog : public ValueDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 186;

    ModifRatingDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, QWidget* parent);

    void accept() override;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    int preselection();

    bool byArrowKey_ = false;
};

}  // namespace edit
