#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "controls/Icons.h"
#include "controls/PictureMeasures.h"
#include "controls/Ribbon.h"
#include "controls/RibbonGroup.h"
#include "controls/RibbonKeyTips.h"
#include "controls/RibbonPage.h"
#include "window/CommandMap.h"
#include "window/RibbonContents.h"

#include <gtest/gtest.h>

#include <QTest>
#include <set>

namespace {

using controls::RibbonItem;

/// The commands as they are when everything is built.
struct AllCommands : window::CommandMap {
    explicit AllCommands(const app::LanguageFile& language) {
        for (const app::Command& command : app::commandTable()) add(command.id, [](app::CommandId) {});
        createActions(language, [](app::CommandId) {});
    }
};

class EnglishRibbon : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(english_.valid());
        controls::RibbonMarkupResult result = controls::readRibbonMarkup(english_.ribbonMarkup());
        ASSERT_TRUE(result.markup) << result.error.toStdString();
        markup_ = std::move(*result.markup);
        nameCommands(markup_, source_);
        assignKeyTips(markup_, source_);
    }

    void collect(const std::vector<RibbonItem>& items) {
        for (const RibbonItem& item : items) {
            if (item.kind != RibbonItem::Kind::Separator) items_.push_back(item);
            collect(item.entries);
        }
    }
    const std::vector<RibbonItem>& allItems() {
        for (const controls::RibbonTabMarkup& tab : markup_.tabs)
            for (const controls::RibbonGroupMarkup& group : tab.groups) collect(group.items);
        return items_;
    }

    const app::LanguageFile english_{TAGWRIGHT_BIN_DIR, 9};
    const AllCommands commands_{english_};
    const window::RibbonContents source_{english_, commands_};
    controls::RibbonMarkup markup_;
    std::vector<RibbonItem> items_;
};

TEST_F(EnglishRibbon, HasItsTabsInOrder) {
    QStringList tabs;
    for (const controls::RibbonTabMarkup& tab : markup_.tabs) tabs.append(english_.text(tab.text));
    EXPECT_EQ(tabs.join(QLatin1Char(' ')).toStdString(), "Home View Metadata Batch Export Search Setup Help");
}

TEST_F(EnglishRibbon, EveryItemSaysWhatItIsAndEveryCommandIsInTheTable) {
    EXPECT_GT(allItems().size(), 350U);
    for (const RibbonItem& item : items_) {
        EXPECT_TRUE(english_.hasText(item.text)) << item.command << " " << item.id.toStdString();
        if (item.command == 0) continue;
        EXPECT_NE(app::findCommand(item.command), nullptr) << item.command;
        EXPECT_GE(english_.tip(item.text).size(), 8) << "no tool tip: " << item.text;
    }
    for (const controls::RibbonTabMarkup& tab : markup_.tabs)
        for (const controls::RibbonGroupMarkup& group : tab.groups) {
            EXPECT_TRUE(english_.hasText(group.text)) << group.id.toStdString();
            for (const RibbonItem& item : group.items) {
                const QAction* action = commands_.action(item.command);
                EXPECT_FALSE(item.icon.isEmpty() && (action == nullptr || action->icon().isNull()))
                    << item.command;
            }
        }
}

/// Numbers that have no place in the ribbon: keys and menus that double a button of it, orders of the panel,
/// the list and the runs, and numbers without an effect.
TEST_F(EnglishRibbon, HasEveryCommandThatBelongsInIt) {
    const std::set<int> elsewhere = {128,   149,   153,   158,   161,   165,   184,   186,   247,
                                     285,   300,   361,   1818,  1820,  1822,  1823,  5036,  5037,
                                     5052,  8003,  10033, 10044, 10070, 10075, 10077, 40011, 40076,
                                     40094, 40100, 40107, 40108, 40113, 40115, 40116, 40117, 40173};
    std::set<int> shown;
    for (const RibbonItem& item : allItems()) shown.insert(item.command);
    for (const app::Command& command : app::commandTable())
        EXPECT_EQ(shown.contains(command.id), !elsewhere.contains(command.id) && command.id < 60000)
            << command.id << " " << command.name;
}

TEST_F(EnglishRibbon, KeyTipsAreDistinctOnEveryLevel) {
    std::set<QString> tabs;
    for (const controls::RibbonTabMarkup& tab : markup_.tabs) {
        EXPECT_TRUE(tabs.insert(tab.keyTip).second);
        std::set<QString> tips;
        for (const controls::RibbonGroupMarkup& group : tab.groups) {
            EXPECT_TRUE(tips.insert(group.keyTip).second);
            for (const RibbonItem& item : group.items) {
                EXPECT_TRUE(tips.insert(item.keyTip).second) << item.command << item.id.toStdString();
                if (item.kind == RibbonItem::Kind::Split) {
                    EXPECT_TRUE(tips.insert(item.arrowKeyTip).second);
                }
            }
        }
        EXPECT_FALSE(tips.contains(QString()));
    }
}

TEST_F(EnglishRibbon, TheEntriesOfAMenuHaveTheirOwnLetters) {
    int without = 0;
    for (const RibbonItem& menu : allItems()) {
        std::set<QString> letters;
        for (const RibbonItem& entry : menu.entries) {
            if (entry.keyTip.isEmpty())
                without += entry.kind == RibbonItem::Kind::Separator ? 0 : 1;
            else
                EXPECT_TRUE(letters.insert(entry.keyTip).second) << entry.command;
        }
    }
    // Twenty colours differ in a second digit only; some XMP groups have no letter of their own left.
    EXPECT_LE(without, 36);
}

TEST_F(EnglishRibbon, FitsAnyWindow) {
    QWidget window;
    auto* ribbon = new controls::Ribbon(&window);
    QString error;
    ASSERT_TRUE(ribbon->setMarkup(english_.ribbonMarkup(), source_, &error)) << error.toStdString();
    window.show();
    for (const int width : {1920, 1280, 900, 600}) {
        ribbon->resize(width, ribbon->sizeHint().height());
        for (const QString& id : ribbon->tabIds()) {
            ribbon->setCurrentTab(id);
            QCoreApplication::processEvents();
            int right = 0;
            for (const controls::RibbonGroup* group : ribbon->page(id)->groups()) {
                right = std::max(right, group->geometry().right());
                EXPECT_FALSE(width >= 1920 && group->isCollapsed()) << group->title().toStdString();
            }
            EXPECT_LT(right, width) << id.toStdString();
        }
    }
}

TEST(CommandIcons, AllExistAndShowInBothLooks) {
    for (const bool dark : {false, true}) {
        controls::setDarkIcons(dark);
        const QColor ground = dark ? QColor(0x2b, 0x2d, 0x2f) : QColor(Qt::white);
        std::set<std::string> names;
        for (const app::Command& command : app::commandTable()) names.insert(command.iconName);
        names.erase("");
        EXPECT_GT(names.size(), 80U);
        for (const std::string& name : names) {
            ASSERT_TRUE(controls::hasIcon(QString::fromStdString(name))) << name;
            for (const int side : {16, 32}) {
                const QPixmap picture =
                    controls::icon(QString::fromStdString(name)).pixmap(QSize(side, side), 1.0);
                EXPECT_EQ(picture.size(), QSize(side, side)) << name;
                EXPECT_GT(coverage(picture), 0.04) << name;
                EXPECT_GE(contrast(picture, ground), 1.9) << name << (dark ? " dark" : " light");
            }
        }
    }
    controls::setDarkIcons(false);
}

}  // namespace
