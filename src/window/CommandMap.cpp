#include "window/CommandMap.h"

namespace window {

void CommandMap::add(app::CommandId first, app::CommandId last, const Handler& handler,
                     const StateQuestion& state) {
    for (app::CommandId id = first; id <= last; ++id)
        if (app::findCommand(id) != nullptr) entries_.try_emplace(id, Entry{handler, state});
}

CommandState CommandMap::state(app::CommandId id) const {
    const auto found = entries_.find(id);
    if (found == entries_.end()) return {.enabled = false};
    return found->second.state ? found->second.state(id) : CommandState{};
}

bool CommandMap::run(app::CommandId id) const {
    const auto found = entries_.find(id);
    if (found == entries_.end() || !state(id).enabled) return false;
    found->second.handler(id);
    return true;
}

}  // namespace window
