#pragma once

#include "taglists/TickedTagsDialog.h"

namespace taglists {

/// Command 178: removes the ticked groups from all files in one run, after a question.
class RemoveDialogTypes : public TickedTagsDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 128;

    RemoveDialogTypes(const jobs::OperationParts& parts, std::vector<std::filesystem::path> files,
                      QWidget* parent);

    void accept() override;

 private:
    const std::vector<std::filesystem::path> files_;
};

}  // namespace taglists
