#include "window/CommandMap.h"

#include "controls/Icons.h"

#include <QKeySequence>

namespace window {

namespace {

QKeySequence keysOf(app::CommandId id) {
    // The key of this view sends a number of its own.
    if (id == app::command::kViewThumbnails) id = app::command::kViewThumbnailsShortcut;
    for (const app::HotKey& key : app::hotKeys())
        if (key.command == id) return QKeyCombination(key.modifiers, key.key);
    for (const app::Shortcut& key : app::shortcuts())
        if (key.command == id) return QKeySequence::fromString(QLatin1String(key.keys));
    return {};
}

void describe(controls::CommandAction& action, const app::Command& command,
              const app::LanguageFile& language) {
    const QString text = command.textNumber != 0 ? language.text(command.textNumber) : QString();
    const QKeySequence keys = keysOf(command.id);
    QString tip = text;
    if (!keys.isEmpty()) tip += QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText));
    const QString more = command.textNumber != 0 ? language.tip(command.textNumber) : QString();
    if (!more.isEmpty()) tip += u'\n' + more;
    action.setText(QString(text).replace(u'&', QStringLiteral("&&")));
    action.setToolTip(tip);
    action.setShortcut(keys);
    action.setCheckable(command.toggle);
    if (*command.iconName != '\0') action.setIcon(controls::icon(QString::fromLatin1(command.iconName)));
}

}  // namespace

void CommandMap::add(app::CommandId first, app::CommandId last, const Handler& handler,
                     const StateQuestion& state, Beside beside) {
    for (app::CommandId id = first; id <= last; ++id) {
        const app::Command* command = app::findCommand(id);
        if (command == nullptr || entries_.contains(id)) continue;
        Entry& entry = entries_[id];
        entry.handler = handler;
        entry.state = state;
        entry.needsSelection = command->needsSelection;
        entry.beside = beside;
    }
}

void CommandMap::setSelectionQuestion(std::function<bool()> hasSelection) {
    hasSelection_ = std::move(hasSelection);
}

void CommandMap::setSelectionText(std::function<QString()> selectionText) {
    selectionText_ = std::move(selectionText);
}

QString CommandMap::selectionText() const {
    return selectionText_ ? selectionText_() : QString();
}

void CommandMap::setOperationQuestion(std::function<bool()> isOperating) {
    isOperating_ = std::move(isOperating);
}

void CommandMap::createActions(const app::LanguageFile& language, const Handler& chosen) {
    for (auto& [id, entry] : entries_) {
        entry.action = std::make_unique<controls::CommandAction>(id);
        describe(*entry.action, *app::findCommand(id), language);
        QObject::connect(entry.action.get(), &controls::CommandAction::Chosen, chosen);
    }
}

CommandState CommandMap::stateOf(app::CommandId id, const Entry& entry) const {
    CommandState state = entry.state ? entry.state(id) : CommandState{};
    if (entry.needsSelection && hasSelection_ && !hasSelection_()) state.enabled = false;
    if (entry.beside == Beside::NoOperation && isOperating_ && isOperating_()) state.enabled = false;
    return state;
}

CommandState CommandMap::state(app::CommandId id) const {
    const auto found = entries_.find(id);
    return found != entries_.end() ? stateOf(id, found->second) : CommandState{.enabled = false};
}

bool CommandMap::run(app::CommandId id) const {
    const auto found = entries_.find(id);
    if (found == entries_.end()) return false;
    found->second.handler(id);
    return true;
}

controls::CommandAction* CommandMap::action(int commandId) const {
    const auto found = entries_.find(commandId);
    return found != entries_.end() ? found->second.action.get() : nullptr;
}

void CommandMap::refresh() {
    for (auto& [id, entry] : entries_) {
        if (entry.action == nullptr) continue;
        const CommandState state = stateOf(id, entry);
        entry.action->setStates(state.enabled, state.checked);
    }
}

}  // namespace window
