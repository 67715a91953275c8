#include "payload/ExportDialogThumbnail.h"

#include "payload/PayloadTexts.h"

#include <QAbstractButton>
#include <utility>

namespace payload {

ExportDialogThumbnail::ExportDialogThumbnail(const jobs::OperationParts& parts,
                                             std::vector<std::filesystem::path> files, QWidget* parent)
    : ExportDialogPayload(parts, std::move(files), kTemplate, parent) {
    setTitle(text::kExportThumbnailsTitleOne, text::kExportThumbnailsTitle);
}

std::vector<PayloadExport> ExportDialogThumbnail::payloads() const {
    std::vector<PayloadExport> chosen;
    for (const PayloadExport& payload : thumbnailExports()) {
        const auto* box = control<QAbstractButton>(payload.box);
        if (box != nullptr && box->isChecked()) chosen.push_back(payload);
    }
    return chosen;
}

}  // namespace payload
