#pragma once

#include "app/CommandTable.h"

#include <functional>
#include <map>
#include <span>

namespace window {

/// Whether a command can run now, and whether it shows as on.
struct CommandState {
    bool enabled = true;
    bool checked = false;

    bool operator==(const CommandState&) const = default;
};

/// Commands that follow one another by number and are done by one method of the subject that they belong to.
template <class Subject>
struct CommandRow {
    app::CommandId first;
    app::CommandId last;  ///< the same as first for most
    void (Subject::*handler)(app::CommandId);
    CommandState (Subject::*state)(app::CommandId) const = nullptr;  ///< null: can always run, is never on
};

/// Which function does what: a subject registers its handlers under their ids, and everything that sends a
/// command runs it here. Knows neither the window nor the subjects. GUI thread.
class CommandMap {
 public:
    using Handler = std::function<void(app::CommandId)>;
    using StateQuestion = std::function<CommandState(app::CommandId)>;

    /// For each number from first to last that is a command; numbers without a command are passed over. A
    /// command has one handler: the first one stays.
    void add(app::CommandId first, app::CommandId last, const Handler& handler,
             const StateQuestion& state = {});
    void add(app::CommandId id, const Handler& handler, const StateQuestion& state = {}) {
        add(id, id, handler, state);
    }
    /// The rows of a subject, which outlives the map.
    template <class Subject>
    void addSubject(Subject& subject, std::span<const CommandRow<Subject>> rows);

    bool isBuilt(app::CommandId id) const { return entries_.contains(id); }
    /// Not enabled when the command is not built.
    CommandState state(app::CommandId id) const;
    /// False when the command is not built, or cannot run now.
    bool run(app::CommandId id) const;

 private:
    struct Entry {
        Handler handler;
        StateQuestion state;
    };
    std::map<app::CommandId, Entry> entries_;
};

template <class Subject>
void CommandMap::addSubject(Subject& subject, std::span<const CommandRow<Subject>> rows) {
    for (const CommandRow<Subject>& row : rows) {
        StateQuestion state;
        if (row.state != nullptr)
            state = [&subject, question = row.state](app::CommandId id) { return (subject.*question)(id); };
        add(
            row.first, row.last,
            [&subject, handler = row.handler](app::CommandId id) { (subject.*handler)(id); }, state);
    }
}

}  // namespace window
