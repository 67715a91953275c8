#pragma once

#include "drive/CommandServer.h"
#include "drive/WindowCommands.h"

namespace drive {

/// The commands by their verbs, with the words that each takes.
class DriveCommands {
 public:
    explicit DriveCommands(window::Program& program) : program_(program), window_(program) {}

    Answer execute(const QStringList& words);
    void endUnattended() { window_.endUnattended(); }

 private:
    enum class Needs;
    struct Verb;
    static const std::vector<Verb>& verbs();

    window::Program& program_;
    WindowCommands window_;
};

}  // namespace drive
