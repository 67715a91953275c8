#pragma once

#include "window/CommandMap.h"
#include "window/WindowParts.h"

namespace window {

class OperationEnding;
class SelectionGathering;

/// What is embedded in files, written out into files of its own. GUI thread.
class PayloadCommands {
 public:
    PayloadCommands(const WindowParts& parts, SelectionGathering& gathering, OperationEnding& ending)
        : parts_(parts), gathering_(gathering), ending_(ending) {}

    static std::span<const CommandRow<PayloadCommands>> rows();

    void exportPayloads(app::CommandId id);

 private:
    const WindowParts& parts_;
    SelectionGathering& gathering_;
    OperationEnding& ending_;
};

}  // namespace window
