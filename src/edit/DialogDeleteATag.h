#pragma once

#include "app/DarkModeDialogBase.h"
#include "edit/DeleteTags.h"

namespace edit {

/// Asks before a tag of the shown file is deleted, and deletes it on OK.
class DialogDeleteATag : public app::DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 80075;

    DialogDeleteATag(const EditParts& parts, const tags::MetadataRow& row, std::filesystem::path file,
                     QWidget* parent);

    void accept() override;
    /// How it went, once the dialog has ended with 1.
    const TagWriteResult& result() const { return result_; }

 private:
    EditParts parts_;
    tags::MetadataRow row_;
    std::filesystem::path file_;
    TagWriteResult result_;
};

}  // namespace edit
