#include "controls/CommandAction.h"

namespace controls {

CommandAction::CommandAction(int commandId, QObject* parent) : QAction(parent), commandId_(commandId) {
    connect(this, &QAction::triggered, this, [this] {
        setChecked(isOn_);  // undoes the toggling that comes with the click
        Q_EMIT Chosen(commandId_);
    });
}

void CommandAction::setStates(bool enabled, bool checked) {
    isOn_ = checked;
    setChecked(checked);
    setEnabled(enabled);
}

QAction* CommandAction::makeEntry(const QString& text, QObject* parent,
                                  const std::function<void()>& beforeChosen) {
    auto* entry = new QAction(icon(), text, parent);
    entry->setToolTip(toolTip());
    entry->setProperty("commandId", commandId_);
    entry->setObjectName(QStringLiteral("action-%1").arg(commandId_));
    entry->setCheckable(isCheckable());
    const auto showStates = [this, entry] {
        entry->setChecked(isOn_);
        entry->setEnabled(isEnabled());
    };
    showStates();
    connect(this, &QAction::changed, entry, showStates);
    connect(entry, &QAction::triggered, this, [this, showStates, beforeChosen] {
        showStates();
        if (beforeChosen) beforeChosen();
        trigger();
    });
    return entry;
}

}  // namespace controls
