#include "batch/BatchOperations.h"
#include "batch/BatchTable.h"

#include "app/LanguageFile.h"

#include <gmock/gmock.h>

namespace {

using batch::BatchOperation;
using batch::findBatchOperation;

TEST(BatchTable, NamesTheDialogAndTemplateOfEachCommand) {
    struct {
        int id;
        const char* dialog;
        int templateNumber;
    } const cases[] = {
        {146, "BatchAddCommentDialog", 117},
        {147, "BatchAddCommentFromFileDialog", 0},
        {154, "BatchDateAdjustDialog", 130},
        {155, "BatchDateResetDialog", 141},
        {156, "BatchDateSetDateTimeDialog", 142},
        {157, "", 0},
        {162, "BatchGeotaggingDialog", 0},
        {166, "BatchAddKeywordsDialog", 137},
        {167, "BatchAddKeywordsFromFileDialog", 138},
        {168, "BatchRemoveKeywordsDialog", 139},
        {171, "BatchRenameFromFileDialog", 143},
        {172, "", 0},
        {173, "", 0},
        {174, "", 0},
        {183, "ThumbnailAddDialog", 157},
        {185, "", 0},
        {188, "BatchRemoveTitleDialog", 0},
        {191, "BatchFindATagDialog", 0},
        {202, "BatchFindATagDialog", 0},
        {203, "BatchFindATextDialog", 0},
        {226, "BatchWebPlusDialog", 91},
        {227, "BatchWebWatermarkDialog", 91},
        {228, "BatchMyDialog", 116},
    };
    for (const auto& row : cases) {
        const BatchOperation* const found = findBatchOperation(row.id);
        ASSERT_NE(found, nullptr) << row.id;
        EXPECT_STREQ(found->dialog, row.dialog) << row.id;
        EXPECT_EQ(found->templateNumber, row.templateNumber) << row.id;
    }
}

TEST(BatchTable, KnowsNoOtherCommand) {
    for (const int id : {-1, 0, 145, 149, 153, 158, 169, 177, 178, 182, 204, 217, 221, 223, 229, 40012})
        EXPECT_EQ(findBatchOperation(id), nullptr) << id;
}

TEST(BatchTable, ASearchAndAValidationShowTheirOwnResult) {
    for (const BatchOperation& row : batch::batchTable()) {
        const bool isSearch = row.id >= 191 && row.id <= 202;
        EXPECT_EQ(row.reportFollows, !isSearch && row.id != 180 && row.id != 181) << row.id;
    }
}

TEST(BatchTable, TheWindowsOwnEntryGoesFirst) {
    for (const int id : {206, 208, 209, 210, 211, 215, 216, 219, 220, 222})
        EXPECT_TRUE(findBatchOperation(id)->isOfWindow) << id;
    for (const int id : {146, 172, 183, 191, 203, 228})
        EXPECT_FALSE(findBatchOperation(id)->isOfWindow) << id;
}

TEST(BatchTable, EveryOperationWithoutADialogSaysWhatItDoes) {
    const app::LanguageFile english(TAGWRIGHT_BIN_DIR, 9);
    std::vector<int> ids;
    for (const BatchOperation& row : batch::batchTable()) {
        ASSERT_NE(app::findCommand(row.id), nullptr) << row.id;
        if (*row.dialog != '\0' || row.isOfWindow) continue;
        ids.push_back(row.id);
    }
    EXPECT_THAT(ids, testing::ElementsAre(157, 172, 173, 174, 185));
    for (const jobs::Operation& operation : batch::operations())
        EXPECT_FALSE(english.text(operation.progressText).isEmpty()) << operation.id;
}

}  // namespace
