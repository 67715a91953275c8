#pragma once

#include "edit/ExportDialogPayload.h"

namespace edit {

/// Writes the thumbnails, previews and covers of the selected files into a folder, each kind that is chosen.
class ExportDialogThumbnail : public ExportDialogPayload {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 81500;

    ExportDialogThumbnail(const EditParts& parts, std::vector<std::filesystem::path> files, QWidget* parent);

 protected:
    std::vector<PayloadExport> payloads() const override;
};

}  // namespace edit
