#include "app/RibbonContents.h"

#include "app/CommandTable.h"
#include "controls/Icons.h"

namespace app {

QString RibbonContents::text(int stringNumber) const {
    return language_.text(stringNumber);
}

QString RibbonContents::tip(int stringNumber) const {
    return language_.tip(stringNumber);
}

QIcon RibbonContents::icon(const QString& name) const {
    return controls::icon(name);
}

int RibbonContents::commandText(int commandId) const {
    const Command* command = FindCommand(commandId);
    return command != nullptr && command->textNumber != 0 ? command->textNumber : commandId;
}

QString RibbonContents::commandIcon(int commandId) const {
    const Command* command = FindCommand(commandId);
    return command != nullptr ? QString::fromLatin1(command->iconName) : QString();
}

bool RibbonContents::available(int commandId) const {
    return IsBuilt(commandId);
}

QKeySequence RibbonContents::shortcut(int commandId) const {
    // The key of this view sends a number of its own.
    if (commandId == command::kViewThumbnails) commandId = command::kViewThumbnailsShortcut;
    for (const HotKey& key : HotKeys())
        if (key.command == commandId) return QKeyCombination(key.modifiers, key.key);
    for (const Shortcut& key : Shortcuts())
        if (key.command == commandId) return QKeySequence::fromString(QLatin1String(key.keys));
    return {};
}

bool RibbonContents::isToggle(int commandId) const {
    const Command* command = FindCommand(commandId);
    return command != nullptr && command->toggle;
}

}  // namespace app
