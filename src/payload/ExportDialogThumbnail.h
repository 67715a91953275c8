#pragma once

#include "payload/ExportDialogPayload.h"

namespace payload {

/// Writes the thumbnails, previews and covers of the selected files into a folder, each kind that is chosen.
class ExportDialogThumbnail : public ExportDialogPayload {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 81500;

    ExportDialogThumbnail(const jobs::OperationParts& parts, std::vector<std::filesystem::path> files,
                          QWidget* parent);

 protected:
    std::vector<PayloadExport> payloads() const override;
};

}  // namespace payload
