#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "taglists/DeleteTags.h"

namespace taglists {

/// Asks before a tag of the shown file is deleted, and deletes it on OK.
class DialogDeleteATag : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 80075;

    DialogDeleteATag(const jobs::OperationParts& parts, app::CommandForm form, const tags::MetadataRow& row,
                     std::filesystem::path file, QWidget* parent);

    void accept() override;

 private:
    jobs::OperationParts parts_;
    app::CommandForm form_;
    tags::MetadataRow row_;
    std::filesystem::path file_;
};

}  // namespace taglists
