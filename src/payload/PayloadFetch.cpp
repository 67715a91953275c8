#include "payload/PayloadFetch.h"

#include "payload/PayloadCommandText.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"

namespace payload {

bool fetchPayload(const app::AppContext& context, exiftool::ToolRunner& runner,
                  const tags::TagEditContext& edit, const PayloadPlaces& places) {
    std::error_code error;
    std::filesystem::remove(places.fetched, error);
    if (!standsForBinaryData(edit.value))
        return platform::replaceFile(places.fetched, platform::narrow(edit.value)).empty();
    const platform::CommandText command =
        fetchPayloadCommand(context, edit.group, edit.title, edit.filePath, places.fetched);
    return !command.empty() && runner.RunToolLine(command) != 0 && !runner.wasStopped();
}

}  // namespace payload
