#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "taglists/DeleteTags.h"

namespace taglists {

/// Asks before the tags of a group of the shown file are deleted, shows which these are, and deletes them on
/// OK.
class DialogDeleteGroup_FromOneFile : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 80077;

    /// rows: those of the group in the panel, at least one.
    DialogDeleteGroup_FromOneFile(const jobs::OperationParts& parts, app::CommandForm form,
                                  const std::vector<tags::MetadataRow>& rows, std::filesystem::path file,
                                  QWidget* parent);

    void accept() override;

 private:
    app::CommandForm form_;
    std::vector<TagAddress> tags_;
    std::filesystem::path file_;
};

}  // namespace taglists
