#pragma once

#include "edit/ValueDialog.h"

namespace edit {

/// A text of any length, of several lines too. Enter is OK; with Ctrl or Shift it begins a new line. A tag
/// that holds several values shows one a line.
class ModifStringDialog : public ValueDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 134;

    ModifStringDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, QWidget* parent);

    void accept() override;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace edit
