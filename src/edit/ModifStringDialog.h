#pragma once

#include "edit/ValueDialog.h"

namespace controls {
class ExactTextEdit;
}

namespace edit {

/// A text of any length, of several lines too. Enter is OK; with Ctrl or Shift it begins a new line. A tag
/// that holds several values shows one a line. A text that the tag would not hold as it is keeps the dialog
/// open.
class ModifStringDialog : public ValueDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 134;

    ModifStringDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, QWidget* parent);

    void accept() override;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    const tags::TagEditContext before_;
    controls::ExactTextEdit* field_ = nullptr;
    bool withReturns_ = false;
};

}  // namespace edit
