#pragma once

#include <QAction>
#include <functional>

namespace controls {

/// The one action of a command, which carries what every button, menu entry and key of it shows: text, icon,
/// tool tip, shortcut, and whether it can run now and is on. The program tells the states; choosing the
/// command changes none. GUI thread.
class CommandAction : public QAction {
    Q_OBJECT

 public:
    explicit CommandAction(int commandId, QObject* parent = nullptr);

    int commandId() const { return commandId_; }
    void setStates(bool enabled, bool checked);

    /// An entry for a menu, owned by the parent, that shows the states of the command and chooses it. It has
    /// a text of its own, since a menu marks letters and names what it is about. beforeChosen, if any, is
    /// called first. The property `commandId` and the object name "action-<id>" tell what it is.
    QAction* makeEntry(const QString& text, QObject* parent, const std::function<void()>& beforeChosen = {});

 Q_SIGNALS:
    /// By a click, a key or a script, and never while it is disabled.
    void Chosen(int commandId);

 private:
    int commandId_;
    bool isOn_ = false;
};

/// Where a widget gets the actions of commands from.
class CommandActions {
 public:
    virtual ~CommandActions() = default;

    /// Null when the program does not have the command; what stands for it is then not shown.
    virtual CommandAction* action(int commandId) const = 0;
    /// Brings all states up to date; called before a menu opens.
    virtual void refresh() = 0;
    /// What stands for the "%s" in the text of an entry that works on the selection, as "3 selected files".
    virtual QString selectionText() const = 0;
};

}  // namespace controls
