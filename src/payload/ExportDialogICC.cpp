#include "payload/ExportDialogICC.h"

#include "payload/PayloadTexts.h"

#include <utility>

namespace payload {

ExportDialogICC::ExportDialogICC(const jobs::OperationParts& parts, std::vector<std::filesystem::path> files,
                                 QWidget* parent)
    : ExportDialogPayload(parts, std::move(files), kTemplate, parent) {
    setTitle(text::kExportIccTitleOne, text::kExportIccTitle);
}

std::vector<PayloadExport> ExportDialogICC::payloads() const {
    return {iccExport()};
}

}  // namespace payload
