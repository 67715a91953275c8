#include "payload/PayloadFetch.h"

#include "app/SpokenText.h"
#include "payload/PayloadCommandText.h"
#include "payload/PayloadTexts.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"

namespace payload {

std::string fetchPayload(const app::AppContext& context, exiftool::ToolRunner& runner,
                         const tags::TagEditContext& edit, const PayloadPlaces& places) {
    std::error_code error;
    std::filesystem::remove(places.fetched, error);
    if (!standsForBinaryData(edit.value))
        return platform::replaceFile(places.fetched, platform::narrow(edit.value));
    const platform::CommandText command =
        fetchPayloadCommand(context, edit.group, edit.title, edit.filePath, places.fetched);
    if (command.empty()) return app::spokenText(text::kNoNameOfATag);
    static_cast<void>(runner.RunToolLine(command));
    std::string fault = runner.lastFaultOfRead(places.fetched);
    if (!fault.empty() || standsForNoBytes(edit.value)) return fault;
    // A tool may also end well and bring nothing.
    const bool hasBytes = std::filesystem::file_size(places.fetched, error) > 0 && !error;
    return hasBytes ? std::string() : app::spokenText(text::kNoDataCame);
}

}  // namespace payload
