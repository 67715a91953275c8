#include "edit/ExportDialogThumbnail.h"

#include "edit/PayloadTexts.h"

#include <QAbstractButton>
#include <utility>

namespace edit {

ExportDialogThumbnail::ExportDialogThumbnail(const EditParts& parts, std::vector<std::filesystem::path> files,
                                             QWidget* parent)
    : ExportDialogPayload(parts, std::move(files), kTemplate, parent) {
    setTitle(text::kExportThumbnailsTitleOne, text::kExportThumbnailsTitle);
}

std::vector<PayloadExport> ExportDialogThumbnail::payloads() const {
    std::vector<PayloadExport> chosen;
    for (const PayloadExport& payload : ThumbnailExports()) {
        const auto* box = control<QAbstractButton>(payload.box);
        if (box != nullptr && box->isChecked()) chosen.push_back(payload);
    }
    return chosen;
}

}  // namespace edit
