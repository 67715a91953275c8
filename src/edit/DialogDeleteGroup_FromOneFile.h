#pragma once

#include "app/DarkModeDialogBase.h"
#include "edit/DeleteTags.h"

namespace edit {

/// Asks before the tags of a group of the shown file are deleted, shows which these are, and deletes them on
/// OK.
class DialogDeleteGroup_FromOneFile : public app::DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 80077;

    /// rows: those of the group in the panel, at least one.
    DialogDeleteGroup_FromOneFile(const EditParts& parts, const std::vector<tags::MetadataRow>& rows,
                                  std::filesystem::path file, QWidget* parent);

    void accept() override;
    /// How it went, once the dialog has ended with 1.
    const TagWriteResult& result() const { return result_; }

 private:
    EditParts parts_;
    std::vector<TagAddress> tags_;
    std::filesystem::path file_;
    TagWriteResult result_;
};

}  // namespace edit
