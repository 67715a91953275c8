#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/OperationParts.h"
#include "tags/TagEditContext.h"

namespace edit {

/// What the dialogs for one value have in common: the title, the tag's label and help, and a line for hints.
/// Each sets its control from the context and on OK puts the new value into it.
class ValueDialog : public dialogs::DarkModeDialogBase {
    Q_OBJECT

 public:
    ValueDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, int templateNumber,
                QWidget* parent);

    void setVisible(bool visible) override;

 protected:
    const jobs::OperationParts& parts() const { return parts_; }
    tags::TagEditContext& edit() { return edit_; }
    app::CommandForm form() const { return form_; }

    enum class HintKind { Remark, Refusal };
    /// Empty takes the line away.
    void showHint(const QString& text, HintKind kind = HintKind::Remark);

 private:
    void showLabel();
    void showHelp();

    const jobs::OperationParts& parts_;
    const app::CommandForm form_;
    tags::TagEditContext& edit_;
};

}  // namespace edit
