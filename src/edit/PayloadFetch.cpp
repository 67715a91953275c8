#include "edit/PayloadFetch.h"

#include "edit/PayloadCommandText.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"

namespace edit {

bool FetchPayload(const app::AppContext& context, exiftool::ToolRunner& runner, const TagEditContext& edit,
                  const PayloadPlaces& places) {
    std::error_code error;
    std::filesystem::remove(places.fetched, error);
    if (!StandsForBinaryData(edit.value))
        return platform::replaceFile(places.fetched, platform::narrow(edit.value)).empty();
    const platform::CommandText command =
        FetchPayloadCommand(context, edit.group, edit.title, edit.filePath, places.fetched);
    return !command.empty() && runner.RunToolLine(command) != 0 && !runner.wasStopped();
}

}  // namespace edit
