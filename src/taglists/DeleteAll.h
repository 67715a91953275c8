#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "jobs/OperationParts.h"
#include "taglists/RemovalLines.h"

#include <filesystem>
#include <vector>

namespace taglists {

/// Command 176: removes everything, or the families that are chosen, from the files. What it offers besides
/// (safety copies, the files' dates) it keeps in the settings. In the designed form the boxes of EXIF and
/// IPTC are what is kept, and the two boxes below only show it.
class DeleteAll : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 176;

    /// settings are the context's, which the parts only read.
    DeleteAll(const jobs::OperationParts& parts, app::Settings::DeleteAll& settings,
              std::vector<std::filesystem::path> files, QWidget* parent);

    void accept() override;

 private:
    void showSettings();
    void storeSettings();
    void enableFamilies();
    bool isTicked(int controlId) const;

    const jobs::OperationParts parts_;
    const app::CommandForm form_;
    app::Settings::DeleteAll& settings_;
    const std::vector<std::filesystem::path> files_;
};

}  // namespace taglists
