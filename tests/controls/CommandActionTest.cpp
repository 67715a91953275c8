#include "controls/CommandAction.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QSignalSpy>

using controls::CommandAction;

namespace {

TEST(CommandAction, ChoosingItTellsTheCommandAndChangesNoState) {
    CommandAction command(12);
    command.setCheckable(true);
    const QSignalSpy spy(&command, &CommandAction::Chosen);
    command.trigger();
    ASSERT_EQ(spy.size(), 1);
    EXPECT_EQ(spy[0][0].toInt(), 12);
    EXPECT_FALSE(command.isChecked());
    command.setStates(true, true);
    command.trigger();
    EXPECT_TRUE(command.isChecked());
}

TEST(CommandAction, IsNeverChosenWhileItIsDisabled) {
    CommandAction command(12);
    const QSignalSpy spy(&command, &CommandAction::Chosen);
    command.setStates(false, false);
    command.trigger();
    EXPECT_EQ(spy.size(), 0);
}

TEST(CommandAction, AnEntryOfAMenuFollowsTheStatesUnderATextOfItsOwn) {
    CommandAction command(12);
    command.setText(QStringLiteral("Delete"));
    command.setCheckable(true);
    command.setStates(false, true);
    QMenu menu;
    const QAction* entry = command.makeEntry(QStringLiteral("&Delete IFD0"), &menu);
    EXPECT_EQ(entry->text(), QStringLiteral("&Delete IFD0"));
    EXPECT_EQ(entry->property("commandId").toInt(), 12);
    EXPECT_FALSE(entry->isEnabled());
    EXPECT_TRUE(entry->isChecked());
    command.setStates(true, false);
    EXPECT_TRUE(entry->isEnabled());
    EXPECT_FALSE(entry->isChecked());
}

TEST(CommandAction, AnEntryChoosesItsCommandAfterWhatComesBefore) {
    CommandAction command(12);
    command.setCheckable(true);
    QString order;
    QObject::connect(&command, &CommandAction::Chosen, &command, [&] { order += u'c'; });
    QMenu menu;
    QAction* entry = command.makeEntry(QStringLiteral("Twelve"), &menu, [&] { order += u'b'; });
    entry->trigger();
    EXPECT_EQ(order, QStringLiteral("bc"));
    EXPECT_FALSE(entry->isChecked()) << "the program tells states, a click does not";
}

TEST(CommandAction, AnEntryOutlivesItsCommandAndThenDoesNothing) {
    QMenu menu;
    auto command = std::make_unique<CommandAction>(12);
    QAction* entry = command->makeEntry(QStringLiteral("Twelve"), &menu);
    bool told = false;
    QObject::connect(command.get(), &CommandAction::Chosen, &menu, [&] { told = true; });
    command.reset();
    entry->trigger();
    EXPECT_FALSE(told);
}

}  // namespace
