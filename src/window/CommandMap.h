#pragma once

#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "controls/CommandAction.h"

#include <functional>
#include <map>
#include <memory>
#include <span>

namespace window {

/// Whether a command can run now, and whether it shows as on.
struct CommandState {
    bool enabled = true;
    bool checked = false;

    bool operator==(const CommandState&) const = default;
};

/// Whether a command can run beside an operation that is carried out.
enum class Beside { AnyOperation, NoOperation };

/// Commands that follow one another by number and are done by one method of the subject that they belong to.
template <class Subject>
struct CommandRow {
    app::CommandId first;
    app::CommandId last;  ///< the same as first for most
    void (Subject::*handler)(app::CommandId);
    CommandState (Subject::*state)(app::CommandId) const = nullptr;  ///< null: can always run, is never on
    Beside beside = Beside::AnyOperation;
};

/// Which function does what, and the one action of each command: a subject registers its handlers under their
/// ids, and ribbon, menus and keys show and choose the actions. Knows neither the window nor the subjects.
/// GUI thread.
class CommandMap : public controls::CommandActions {
 public:
    using Handler = std::function<void(app::CommandId)>;
    using StateQuestion = std::function<CommandState(app::CommandId)>;

    /// For each number from first to last that is a command; numbers without a command are passed over. A
    /// command has one handler: the first one stays.
    void add(app::CommandId first, app::CommandId last, const Handler& handler,
             const StateQuestion& state = {}, Beside beside = Beside::AnyOperation);
    void add(app::CommandId id, const Handler& handler, const StateQuestion& state = {}) {
        add(id, id, handler, state);
    }
    /// The rows of a subject, which outlives the map.
    template <class Subject>
    void addSubject(Subject& subject, std::span<const CommandRow<Subject>> rows);

    /// Whether anything is selected, for the commands of which the table says that they need it. Without a
    /// question these can always run.
    void setSelectionQuestion(std::function<bool()> hasSelection);
    void setSelectionText(std::function<QString()> selectionText);
    /// Whether an operation is being carried out, for the commands that cannot run beside one.
    void setOperationQuestion(std::function<bool()> isOperating);
    /// Makes the actions of all commands added so far; chosen is told when one is chosen.
    void createActions(const app::LanguageFile& language, const Handler& chosen);

    bool isBuilt(app::CommandId id) const { return entries_.contains(id); }
    /// As it is now. Not enabled when the command is not built.
    CommandState state(app::CommandId id) const;
    /// Runs the handler, which tells itself why it cannot do its work. False when the command is not built.
    bool run(app::CommandId id) const;

    // --- controls::CommandActions
    controls::CommandAction* action(int commandId) const override;
    void refresh() override;
    QString selectionText() const override;

 private:
    struct Entry {
        Handler handler;
        StateQuestion state;
        bool needsSelection = false;
        Beside beside = Beside::AnyOperation;
        std::unique_ptr<controls::CommandAction> action;
    };
    CommandState stateOf(app::CommandId id, const Entry& entry) const;

    std::map<app::CommandId, Entry> entries_;
    std::function<bool()> hasSelection_;
    std::function<QString()> selectionText_;
    std::function<bool()> isOperating_;
};

template <class Subject>
void CommandMap::addSubject(Subject& subject, std::span<const CommandRow<Subject>> rows) {
    for (const CommandRow<Subject>& row : rows) {
        StateQuestion state;
        if (row.state != nullptr)
            state = [&subject, question = row.state](app::CommandId id) { return (subject.*question)(id); };
        add(
            row.first, row.last,
            [&subject, handler = row.handler](app::CommandId id) { (subject.*handler)(id); }, state,
            row.beside);
    }
}

}  // namespace window
