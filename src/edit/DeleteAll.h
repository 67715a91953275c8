#pragma once

#include "app/DarkModeDialogBase.h"
#include "edit/EditParts.h"
#include "edit/RemovalLines.h"

#include <filesystem>
#include <vector>

namespace edit {

/// Command 176: removes everything, or the families that are chosen, from the files. What it offers besides
/// (safety copies, the files' dates) it keeps in the settings. In the designed form the boxes of EXIF and
/// IPTC are what is kept, and the two boxes below only show it.
class DeleteAll : public app::DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 176;

    /// settings are the context's, which the parts only read.
    DeleteAll(const EditParts& parts, app::Settings::DeleteAll& settings,
              std::vector<std::filesystem::path> files, QWidget* parent);

    void accept() override;

 private:
    void showSettings();
    void storeSettings();
    void enableFamilies();
    bool isTicked(int controlId) const;

    const EditParts parts_;
    app::Settings::DeleteAll& settings_;
    const std::vector<std::filesystem::path> files_;
};

}  // namespace edit
