#include "app/CommandTable.h"
#include "window/SubjectCommands.h"

#include <gtest/gtest.h>

namespace {

TEST(CommandHandlers, ACommandIsBuiltWhenASubjectHasAHandlerForIt) {
    int built = 0;
    for (const app::Command& command : app::commandTable()) {
        if (command.built) ++built;
        EXPECT_EQ(window::SubjectCommands::isBuilt(command.id), command.built)
            << command.id << " " << command.name;
    }
    EXPECT_GT(built, 30);
}

TEST(CommandHandlers, NumbersWithoutACommandHaveNone) {
    for (const int id : {0, -1, 7, 99999, 1 << 30}) EXPECT_FALSE(window::SubjectCommands::isBuilt(id)) << id;
}

}  // namespace
