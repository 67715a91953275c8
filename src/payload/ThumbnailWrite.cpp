#include "payload/ThumbnailWrite.h"

#include "exiftool/LineParts.h"
#include "payload/Payload.h"
#include "payload/PayloadCommandText.h"
#include "platform/FileCopy.h"
#include "platform/FileIdentity.h"
#include "platform/MappedFile.h"
#include "platform/Text.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>

namespace payload {

namespace fs = std::filesystem;
using exiftool::Outcome;
using exiftool::OutcomeKind;

namespace {

constexpr const char* kPlainName = "NewThumbnail.jpg";
constexpr std::chrono::milliseconds kDesignedPause{300};

using PictureLine = platform::CommandText (*)(const app::AppContext& context, app::CommandForm form,
                                              const fs::path& picture, const fs::path& file);

Outcome writeThumbnail(jobs::JobWork& work, const fs::path& file, const platform::CommandText& command) {
    work.runner.copyForSafety(file);
    return work.runner.runWriteLine(file, command);
}

Outcome writePicture(jobs::JobWork& work, const fs::path& picture, const fs::path& file, PictureLine line) {
    const fs::path usable = usablePicture(work.context, work.form, picture);
    if (usable.empty())
        return {file, OutcomeKind::NotStarted, "Cannot be copied - " + platform::narrow(picture)};
    return writeThumbnail(work, file, line(work.context, work.form, usable, file));
}

/// Ends early when the job is stopped.
void rest(const std::stop_token& stop) {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any().wait_for(lock, stop, kDesignedPause, [] { return false; });
}

}  // namespace

fs::path usablePicture(const app::AppContext& context, app::CommandForm form, const fs::path& picture) {
    if (form == app::CommandForm::Designed || !isNamePattern(exiftool::fileWord(picture))) return picture;
    const fs::path copy = context.tempPath / kPlainName;
    return platform::copyFile(picture, copy) == 0 ? copy : fs::path();
}

bool isJpegFile(const fs::path& file) {
    const auto mapped = platform::MappedFile::Open(file);
    return mapped != nullptr && kindOfPayload(mapped->bytes()) == PayloadKind::Jpeg;
}

jobs::Job replaceThumbnailJob(const QString& title, const fs::path& picture, const fs::path& file) {
    jobs::Job job{.title = title, .files = {file}};
    job.workOnFile = [picture](jobs::JobWork& work, const fs::path& one) {
        return writePicture(work, picture, one, replaceThumbnailCommand);
    };
    return job;
}

jobs::Job deleteThumbnailJob(const QString& title, const fs::path& file) {
    jobs::Job job{.title = title, .files = {file}};
    job.workOnFile = [](jobs::JobWork& work, const fs::path& one) {
        return writeThumbnail(work, one, deleteThumbnailCommand(work.context, work.form, one));
    };
    return job;
}

jobs::Job embedThumbnailJob(const QString& title, const fs::path& picture,
                            const std::vector<fs::path>& files) {
    jobs::Job job{.title = title, .files = files};
    job.workOnFile = [picture](jobs::JobWork& work, const fs::path& file) {
        const bool isDesigned = work.form == app::CommandForm::Designed;
        // The line empties the report too, but only after its end has been noted, behind which the words of
        // this file are looked for.
        std::error_code ignored;
        if (isDesigned) fs::remove(work.context.reportFile, ignored);
        Outcome outcome = writePicture(work, picture, file, addThumbnailCommand);
        if (isDesigned) rest(work.stop);
        return outcome;
    };
    job.sameForAll = [picture](const app::AppContext& context, app::CommandForm form, const fs::path& file) {
        const fs::path usable = usablePicture(context, form, picture);
        return usable.empty() ? platform::CommandText() : addThumbnailCommand(context, form, usable, file);
    };
    return job;
}

}  // namespace payload
