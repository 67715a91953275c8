#include "app/CommandTable.h"
#include "window/MainWindow.h"

#include <gtest/gtest.h>

namespace {

TEST(CommandHandlers, EveryBuiltCommandHasOne) {
    int built = 0;
    for (const app::Command& command : app::commandTable()) {
        if (!command.built) continue;
        ++built;
        EXPECT_TRUE(window::MainWindow::handles(command.id)) << command.id << " " << command.name;
    }
    EXPECT_GT(built, 30);
}

TEST(CommandHandlers, NumbersWithoutACommandHaveNone) {
    for (const int id : {0, -1, 7, 99999, 1 << 30}) EXPECT_FALSE(window::MainWindow::handles(id)) << id;
}

}  // namespace
