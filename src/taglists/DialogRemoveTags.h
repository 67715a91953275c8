#pragma once

#include "taglists/TickedTagsDialog.h"

namespace taglists {

/// Command 177: removes the ticked ones of the tags that the selected files hold. The list says how many of
/// the files hold each; of one file, the value.
class DialogRemoveTags : public TickedTagsDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 144;

    /// Reads the files, which takes as long as ExifTool takes.
    DialogRemoveTags(const jobs::OperationParts& parts, std::vector<std::filesystem::path> files,
                     QWidget* parent);

    void accept() override;

 private:
    const std::vector<std::filesystem::path> files_;
};

/// Command 1819: the same for the file shown, with the tags of one group; an empty group stands for all.
class DialogRemoveATag_FromOneFile : public TickedTagsDialog {  // NOLINT(readability-identifier-naming)
    Q_OBJECT

 public:
    static constexpr int kTemplate = 1819;
    static constexpr int kLongestGroup = 80;

    DialogRemoveATag_FromOneFile(const jobs::OperationParts& parts, std::filesystem::path file,
                                 const QString& group, QWidget* parent);

    void accept() override;

 private:
    const std::filesystem::path file_;
};

}  // namespace taglists
