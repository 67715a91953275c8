#include "edit/ExportDialogICC.h"

#include "edit/PayloadTexts.h"

#include <utility>

namespace edit {

ExportDialogICC::ExportDialogICC(const EditParts& parts, std::vector<std::filesystem::path> files,
                                 QWidget* parent)
    : ExportDialogPayload(parts, std::move(files), kTemplate, parent) {
    setTitle(text::kExportIccTitleOne, text::kExportIccTitle);
}

std::vector<PayloadExport> ExportDialogICC::payloads() const {
    return {IccExport()};
}

}  // namespace edit
