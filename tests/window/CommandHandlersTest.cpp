#include "app/CommandTable.h"
#include "batch/BatchTable.h"
#include "dialogs/FormControls.h"
#include "jobs/FieldControls.h"
#include "window/SubjectCommands.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using window::SubjectCommands;

TEST(CommandHandlers, WhatHasNoHandlerIsNotOffered) {
    for (const int built :
         {8, 9, 12, 17, 248, 284, 5033, 5034, 5035, 5040, 40012, 40074, 40075, 40092, 40108, 50001})
        EXPECT_TRUE(SubjectCommands::isBuilt(built)) << built;
    for (const int missing : {0, -1, 7, 13, 14, 15, 149, 279, 285, 361, 10070, 50101, 99999, 1 << 30})
        EXPECT_FALSE(SubjectCommands::isBuilt(missing)) << missing;
}

TEST(CommandHandlers, EveryCommandIsDoneByTheSubjectThatItIsAbout) {
    struct Case {
        int first;
        int last;
        const char* subject;
    };
    for (const auto& [first, last, subject] :
         {Case{8, 9, "FrameCommands"},           Case{12, 12, "BrowseCommands"},
          Case{17, 17, "FrameCommands"},         Case{22, 36, "TagListCommands"},
          Case{57, 106, "TagListCommands"},      Case{108, 142, "TagListCommands"},
          Case{157, 157, "OperationCommands"},   Case{172, 174, "OperationCommands"},
          Case{176, 176, "OperationCommands"},   Case{177, 178, "RemovalCommands"},
          Case{183, 183, "OperationCommands"},   Case{185, 185, "OperationCommands"},
          Case{216, 217, "PayloadCommands"},     Case{245, 248, "BrowseCommands"},
          Case{284, 284, "FrameCommands"},       Case{1819, 1819, "RemovalCommands"},
          Case{1821, 1821, "EditingCommands"},   Case{1824, 1824, "TagListCommands"},
          Case{5033, 5037, "BrowseCommands"},    Case{8003, 8003, "ReadingCommands"},
          Case{8056, 8056, "ReadingCommands"},   Case{10004, 10004, "ExportCommands"},
          Case{10033, 10041, "ExportCommands"},  Case{10065, 10065, "OperationCommands"},
          Case{10066, 10069, "RemovalCommands"}, Case{10075, 10075, "EditingCommands"},
          Case{40012, 40012, "BrowseCommands"},  Case{40100, 40100, "ReadingCommands"},
          Case{50001, 50004, "BrowseCommands"}})
        for (int id = first; id <= last; ++id) EXPECT_EQ(SubjectCommands::subjectOf(id), subject) << id;
}

TEST(CommandHandlers, EveryBatchOperationThatAsksNothingIsBuilt) {
    for (const batch::BatchOperation& row : batch::batchTable()) {
        if (*row.dialog != '\0' || row.isOfWindow) continue;
        EXPECT_EQ(SubjectCommands::subjectOf(row.id), "OperationCommands") << row.id;
    }
}

TEST(CommandHandlers, EveryKeyThatIsToldSendsACommandThatIsBuilt) {
    for (const app::Shortcut& shortcut : app::shortcuts())
        EXPECT_TRUE(SubjectCommands::isBuilt(shortcut.command)) << shortcut.keys;
}

TEST(CommandHandlers, AnOperationNamesControlsThatItsFormHas) {
    for (const auto& row : window::OperationCommands::rows()) {
        const jobs::Operation* const operation = window::OperationCommands::find(row.first);
        ASSERT_NE(operation, nullptr) << row.first;
        EXPECT_NE(app::findCommand(operation->id), nullptr) << row.first;
        const int form = operation->templateNumber;
        const std::vector<jobs::NeededControl> needed = jobs::neededControls(*operation);
        EXPECT_TRUE(form != 0 || needed.empty()) << row.first;
        const auto declared = dialogs::formControls(form);
        for (const jobs::NeededControl& control : needed) {
            const auto found = std::ranges::find(declared, control.control, &dialogs::FormControl::controlId);
            ASSERT_NE(found, declared.end()) << form << ' ' << control.control;
            EXPECT_TRUE(control.classes.empty() ||
                        std::ranges::find(control.classes, std::string_view(found->className)) !=
                            control.classes.end())
                << form << ' ' << control.control << " is a " << found->className;
        }
    }
}

}  // namespace
