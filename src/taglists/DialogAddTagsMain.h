#pragma once

#include "taglists/AddTagsGroups.h"
#include "taglists/TagValuesDialog.h"

namespace taglists {

/// Every tag of one group that can be written, for one file or several. Shown with run().
class DialogAddTagsMain : public TagValuesDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 8;

    /// The command chooses the group. Reads the file when there is only one.
    DialogAddTagsMain(const jobs::OperationParts& parts, int commandId,
                      std::vector<std::filesystem::path> files, QWidget* parent);

 protected:
    jobs::Job jobOf(const TagRows& rows) override;

 private:
    const AddTagsGroup& group_;
};

}  // namespace taglists
