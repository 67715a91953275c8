#include "window/RibbonContents.h"

#include "app/CommandTable.h"
#include "controls/Icons.h"

namespace window {

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
    const app::Command* command = app::findCommand(commandId);
    return command != nullptr && command->textNumber != 0 ? command->textNumber : commandId;
}

QString RibbonContents::commandIcon(int commandId) const {
    const app::Command* command = app::findCommand(commandId);
    return command != nullptr ? QString::fromLatin1(command->iconName) : QString();
}

bool RibbonContents::available(int commandId) const {
    return app::isBuilt(commandId);
}

QKeySequence RibbonContents::shortcut(int commandId) const {
    // The key of this view sends a number of its own.
    if (commandId == app::command::kViewThumbnails) commandId = app::command::kViewThumbnailsShortcut;
    for (const app::HotKey& key : app::hotKeys())
        if (key.command == commandId) return QKeyCombination(key.modifiers, key.key);
    for (const app::Shortcut& key : app::shortcuts())
        if (key.command == commandId) return QKeySequence::fromString(QLatin1String(key.keys));
    return {};
}

bool RibbonContents::isToggle(int commandId) const {
    const app::Command* command = app::findCommand(commandId);
    return command != nullptr && command->toggle;
}

}  // namespace window
