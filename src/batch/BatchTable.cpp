#include "batch/BatchTable.h"

#include <algorithm>
#include <array>

namespace batch {

namespace {

constexpr BatchOperation asking(app::CommandId id, const char* dialog, int templateNumber = 0) {
    return {id, dialog, templateNumber};
}

constexpr BatchOperation withoutDialog(app::CommandId id) {
    return {id, "", 0};
}

constexpr BatchOperation silent(app::CommandId id, const char* dialog) {
    return {.id = id, .dialog = dialog, .templateNumber = 0, .reportFollows = false};
}

constexpr BatchOperation search(app::CommandId id) {
    return silent(id, "BatchFindATagDialog");
}

constexpr BatchOperation ofWindow(app::CommandId id, const char* dialog) {
    BatchOperation operation = asking(id, dialog);
    operation.isOfWindow = true;
    return operation;
}

constexpr auto kOperations = std::to_array<BatchOperation>({
    asking(146, "BatchAddCommentDialog", 117),
    asking(147, "BatchAddCommentFromFileDialog"),
    asking(148, "BatchRemoveCommentDialog"),
    asking(150, "BatchAddCopyrightDialog"),
    asking(151, "BatchRemoveCopyrightDialog"),
    asking(152, "BatchAddFullCopyrightDialog"),
    asking(154, "BatchDateAdjustDialog", 130),
    asking(155, "BatchDateResetDialog", 141),
    asking(156, "BatchDateSetDateTimeDialog", 142),
    withoutDialog(157),
    asking(159, "BatchAddDescriptionDialog"),
    asking(160, "BatchRemoveDescriptionDialog"),
    asking(162, "BatchGeotaggingDialog"),
    asking(163, "BatchGeotaggingDialog"),
    asking(164, "BatchGeotaggingDeleteDialog"),
    asking(166, "BatchAddKeywordsDialog", 137),
    asking(167, "BatchAddKeywordsFromFileDialog", 138),
    asking(168, "BatchRemoveKeywordsDialog", 139),
    asking(171, "BatchRenameFromFileDialog", 143),
    withoutDialog(172),
    withoutDialog(173),
    withoutDialog(174),
    silent(180, "BatchValidateDialog"),
    silent(181, "BatchValidateDialog"),
    asking(183, "ThumbnailAddDialog", 157),
    withoutDialog(185),
    asking(187, "BatchAddTitleDialog"),
    asking(188, "BatchRemoveTitleDialog"),
    search(191),
    search(192),
    search(193),
    search(194),
    search(195),
    search(196),
    search(197),
    search(198),
    search(199),
    search(200),
    search(201),
    search(202),
    asking(203, "BatchFindATextDialog"),
    ofWindow(206, "BatchExportDialog"),
    ofWindow(208, "BatchExportSelectedSetDialog"),
    ofWindow(209, "BatchExportCreateSetDialog"),
    ofWindow(210, ""),
    ofWindow(211, "BatchExportDialog"),
    ofWindow(212, "BatchExportDialog"),
    ofWindow(213, "BatchExportDialog"),
    ofWindow(214, "BatchExportDialog"),
    ofWindow(215, "BatchExportDialog"),
    ofWindow(216, "BatchExportDialog"),
    ofWindow(219, "BatchImportDialog"),
    ofWindow(220, "BatchImportDialog"),
    ofWindow(222, "BatchImportDialog"),
    asking(226, "BatchWebPlusDialog", 91),
    asking(227, "BatchWebWatermarkDialog", 91),
    asking(228, "BatchMyDialog", 116),
});
static_assert(std::ranges::adjacent_find(kOperations, std::ranges::greater_equal{}, &BatchOperation::id) ==
              kOperations.end());
static_assert(kOperations.front().id == kFirstBatchCommand && kOperations.back().id == kLastBatchCommand);

}  // namespace

std::span<const BatchOperation> batchTable() {
    return kOperations;
}

const BatchOperation* findBatchOperation(app::CommandId id) {
    const auto* const found = std::ranges::lower_bound(kOperations, id, {}, &BatchOperation::id);
    return found != kOperations.end() && found->id == id ? found : nullptr;
}

}  // namespace batch
