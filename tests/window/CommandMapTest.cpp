#include "window/CommandMap.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <vector>

using window::CommandMap;
using window::CommandState;

namespace {

using namespace app::command;

class CommandMapTest : public testing::Test {
 protected:
    CommandMap::Handler note() {
        return [this](app::CommandId id) { done_.push_back(id); };
    }
    void createActions() { map_.createActions(english_, note()); }

    const app::LanguageFile english_{TAGWRIGHT_BIN_DIR, 9};
    CommandMap map_;
    std::vector<app::CommandId> done_;
};

TEST_F(CommandMapTest, ACommandIsBuiltWhenItHasAHandler) {
    map_.add(kRefresh, note());
    EXPECT_TRUE(map_.isBuilt(kRefresh));
    EXPECT_FALSE(map_.isBuilt(kBack));
    EXPECT_TRUE(map_.run(kRefresh));
    EXPECT_FALSE(map_.run(kBack));
    EXPECT_EQ(done_, std::vector<app::CommandId>{kRefresh});
}

TEST_F(CommandMapTest, ARangeTakesTheCommandsInItAndNoOtherNumbers) {
    map_.add(kFirstAddTags, kModifyIptc + 30, note());
    EXPECT_TRUE(map_.isBuilt(kFirstAddTags));
    EXPECT_TRUE(map_.isBuilt(57));
    for (const int gap : {37, 56}) EXPECT_FALSE(map_.isBuilt(gap)) << gap;
}

TEST_F(CommandMapTest, TheFirstHandlerOfACommandStays) {
    bool isOther = false;
    map_.add(kModifyIptc, note());
    map_.add(kFirstAddTags, kLastAddTags, [&](app::CommandId) { isOther = true; });
    EXPECT_TRUE(map_.run(kModifyIptc));
    EXPECT_FALSE(isOther);
    EXPECT_TRUE(map_.run(kFirstAddTags));
    EXPECT_TRUE(isOther);
}

TEST_F(CommandMapTest, ARowOfASubjectIsBoundToTheSubject) {
    struct Subject {
        std::vector<app::CommandId> seen;
        void act(app::CommandId id) { seen.push_back(id); }
        CommandState state(app::CommandId id) const {
            return {.enabled = id != kBack, .checked = id == kBack};
        }
    } subject;
    const window::CommandRow<Subject> rows[] = {{kBack, kForward, &Subject::act, &Subject::state},
                                                {kRefresh, kRefresh, &Subject::act}};
    map_.addSubject(subject, std::span<const window::CommandRow<Subject>>(rows));
    EXPECT_TRUE(map_.run(kForward));
    EXPECT_EQ(subject.seen, std::vector<app::CommandId>{kForward});
    EXPECT_EQ(map_.state(kBack), (CommandState{.enabled = false, .checked = true}));
    EXPECT_EQ(map_.state(kForward), CommandState{});
    EXPECT_EQ(map_.state(kRefresh), CommandState{});
    EXPECT_FALSE(map_.state(kUp).enabled) << "not built";
}

TEST_F(CommandMapTest, WhatNeedsASelectionIsDisabledWithoutOne) {
    bool hasSelection = false;
    map_.setSelectionQuestion([&] { return hasSelection; });
    map_.add(kModifyExif, note());
    map_.add(kFirstAddTags, note());  // asks for a folder where nothing is selected
    EXPECT_FALSE(map_.state(kModifyExif).enabled);
    EXPECT_TRUE(map_.state(kFirstAddTags).enabled);
    hasSelection = true;
    EXPECT_TRUE(map_.state(kModifyExif).enabled);
}

TEST_F(CommandMapTest, WhatCannotRunBesideAnOperationIsDisabledWhileOneRuns) {
    struct Subject {
        void act(app::CommandId) {}
    } subject;
    using window::Beside;
    const window::CommandRow<Subject> rows[] = {
        {kModifyIptc, kModifyIptc, &Subject::act, nullptr, Beside::NoOperation},
        {kRefresh, kRefresh, &Subject::act}};
    map_.addSubject(subject, std::span<const window::CommandRow<Subject>>(rows));
    EXPECT_TRUE(map_.state(kModifyIptc).enabled) << "nobody can tell";
    bool isOperating = true;
    map_.setOperationQuestion([&] { return isOperating; });
    EXPECT_FALSE(map_.state(kModifyIptc).enabled);
    EXPECT_TRUE(map_.state(kRefresh).enabled);
    isOperating = false;
    EXPECT_TRUE(map_.state(kModifyIptc).enabled);
}

TEST_F(CommandMapTest, AnActionSaysWhatTheCommandIs) {
    map_.add(kRefresh, note());
    map_.add(kShowHidden, note());
    EXPECT_EQ(map_.action(kRefresh), nullptr) << "none before they are made";
    createActions();
    const controls::CommandAction* refresh = map_.action(kRefresh);
    ASSERT_NE(refresh, nullptr);
    EXPECT_EQ(refresh->text(), english_.text(248));
    EXPECT_EQ(refresh->shortcut(), QKeySequence(Qt::Key_F5));
    EXPECT_FALSE(refresh->icon().isNull());
    EXPECT_FALSE(refresh->isCheckable());
    EXPECT_EQ(refresh->toolTip(), english_.text(248) + QStringLiteral(" (F5)\n") + english_.tip(248));
    EXPECT_TRUE(map_.action(kShowHidden)->isCheckable());
    EXPECT_EQ(map_.action(kBack), nullptr);
}

TEST_F(CommandMapTest, TheActionsShowTheStatesOfTheLastRefresh) {
    bool isOn = false;
    bool canRun = true;
    map_.add(kShowHidden, note(),
             [&](app::CommandId) { return CommandState{.enabled = canRun, .checked = isOn}; });
    createActions();
    map_.refresh();
    controls::CommandAction& action = *map_.action(kShowHidden);
    EXPECT_TRUE(action.isEnabled());
    EXPECT_FALSE(action.isChecked());
    isOn = true;
    canRun = false;
    map_.refresh();
    EXPECT_FALSE(action.isEnabled());
    EXPECT_TRUE(action.isChecked());
    action.trigger();
    EXPECT_TRUE(done_.empty());
    canRun = true;
    map_.refresh();
    action.trigger();
    EXPECT_EQ(done_, std::vector<app::CommandId>{kShowHidden});
}

}  // namespace
