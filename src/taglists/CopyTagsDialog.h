#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "exiftool/WriteCommands.h"
#include "jobs/JobSource.h"
#include "jobs/OperationParts.h"

#include <filesystem>
#include <vector>

class QLineEdit;

namespace taglists {

/// Commands 10062 and 10065: copies the tags of the chosen families from one file to the files. Stays open
/// while there is no such source or no family is chosen.
class CopyTagsDialog : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 10062;

    CopyTagsDialog(const jobs::OperationParts& parts, std::vector<std::filesystem::path> files,
                   QWidget* parent);

    void accept() override;

 private:
    void chooseSource();
    std::filesystem::path source() const;
    exiftool::CopiedFamilies families() const;

    const jobs::OperationParts parts_;
    const std::vector<std::filesystem::path> files_;
    QLineEdit* edit_;
    std::filesystem::path chosen_;  ///< keeps the bytes of a name that a text cannot hold
};

}  // namespace taglists
