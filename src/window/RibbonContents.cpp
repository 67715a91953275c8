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

controls::CommandAction* RibbonContents::action(int commandId) const {
    return commands_.action(commandId);
}

}  // namespace window
