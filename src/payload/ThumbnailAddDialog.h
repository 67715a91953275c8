#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "jobs/OperationParts.h"

#include <filesystem>
#include <vector>

class QLineEdit;

namespace payload {

/// Asks for a JPEG that becomes the thumbnail of all files of a selection. GUI thread.
class ThumbnailAddDialog : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 157;

    ThumbnailAddDialog(const jobs::OperationParts& parts, std::vector<std::filesystem::path> files,
                       QWidget* parent);

 public Q_SLOTS:
    void accept() override;

 private:
    void choosePicture();
    std::filesystem::path picture() const;

    jobs::OperationParts parts_;
    std::vector<std::filesystem::path> files_;
    std::filesystem::path chosen_;  ///< by the button; its text cannot always be turned back into it
    QLineEdit* edit_;
};

}  // namespace payload
