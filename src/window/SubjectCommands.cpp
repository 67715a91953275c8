#include "window/SubjectCommands.h"

#include "jobs/JobRunner.h"

#include <vector>

namespace window {

namespace {

struct Registered {
    app::CommandId first;
    app::CommandId last;
    std::string_view subject;
};

template <class Subject>
void collect(std::vector<Registered>& all, std::string_view name) {
    for (const CommandRow<Subject>& row : Subject::rows()) all.push_back({row.first, row.last, name});
}

const std::vector<Registered>& registered() {
    static const std::vector<Registered> all = [] {
        std::vector<Registered> collected;
        collect<BrowseCommands>(collected, "BrowseCommands");
        collect<EditingCommands>(collected, "EditingCommands");
        collect<ExportCommands>(collected, "ExportCommands");
        collect<FrameCommands>(collected, "FrameCommands");
        collect<OperationCommands>(collected, "OperationCommands");
        collect<PayloadCommands>(collected, "PayloadCommands");
        collect<ReadingCommands>(collected, "ReadingCommands");
        collect<RemovalCommands>(collected, "RemovalCommands");
        collect<TagListCommands>(collected, "TagListCommands");
        return collected;
    }();
    return all;
}

}  // namespace

SubjectCommands::SubjectCommands(const WindowParts& parts, const std::function<void()>& relayout,
                                 const CommandMap::Handler& chosen)
    : reading_(parts),
      browse_(parts),
      ending_(parts, reading_),
      gathering_(parts, ending_),
      frame_(parts, reading_, relayout),
      exports_(parts, map_, browse_, ending_),
      editing_(parts, reading_, ending_),
      removals_(parts, gathering_, ending_),
      tagLists_(parts, gathering_, ending_),
      payloads_(parts, gathering_, ending_),
      operations_(parts, gathering_, ending_, browse_) {
    const auto add = [this]<class Subject>(Subject& subject) { map_.addSubject(subject, Subject::rows()); };
    add(reading_);
    add(browse_);
    add(frame_);
    add(exports_);
    add(editing_);
    add(removals_);
    add(tagLists_);
    add(payloads_);
    add(operations_);
    map_.setSelectionQuestion([&parts] { return parts.hasSelection(); });
    map_.setSelectionText([&parts] { return parts.selectionText(); });
    map_.setOperationQuestion([&parts] { return parts.jobs.isRunning(); });
    map_.createActions(parts.language, chosen);
}

bool SubjectCommands::isBuilt(app::CommandId id) {
    return !subjectOf(id).empty();
}

std::string_view SubjectCommands::subjectOf(app::CommandId id) {
    if (app::findCommand(id) == nullptr) return {};
    for (const Registered& commands : registered())
        if (id >= commands.first && id <= commands.last) return commands.subject;
    return {};
}

}  // namespace window
