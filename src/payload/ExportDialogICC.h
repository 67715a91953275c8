#pragma once

#include "payload/ExportDialogPayload.h"

namespace payload {

/// Writes the colour profiles of the selected files into a folder.
class ExportDialogICC : public ExportDialogPayload {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 81501;

    ExportDialogICC(const jobs::OperationParts& parts, std::vector<std::filesystem::path> files,
                    QWidget* parent);

 protected:
    std::vector<PayloadExport> payloads() const override;
};

}  // namespace payload
