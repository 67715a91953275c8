#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/OperationParts.h"

#include <filesystem>
#include <vector>

class QLineEdit;

namespace payload {

/// Asks for a JPEG and makes it the thumbnail of all files of a selection. run() answers 1 when the files
/// were gone through; what became of each stands in the report. GUI thread.
class ThumbnailAddDialog : public dialogs::DarkModeDialogBase {
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
    void embed(const std::filesystem::path& usable);

    jobs::OperationParts parts_;
    std::vector<std::filesystem::path> files_;
    std::filesystem::path chosen_;  ///< by the button; its text cannot always be turned back into it
    QLineEdit* edit_;
};

}  // namespace payload
