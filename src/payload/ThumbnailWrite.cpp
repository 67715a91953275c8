#include "payload/ThumbnailWrite.h"

#include "app/SpokenText.h"
#include "exiftool/LineParts.h"
#include "payload/Payload.h"
#include "payload/PayloadCommandText.h"
#include "payload/PayloadTexts.h"
#include "platform/FileCopy.h"
#include "platform/FileIdentity.h"
#include "platform/MappedFile.h"
#include "platform/Text.h"

#include <system_error>

namespace payload {

namespace fs = std::filesystem;
using exiftool::Outcome;
using exiftool::OutcomeKind;

namespace {

constexpr const char* kPlainName = "NewThumbnail.jpg";

/// copyFile() keeps the times. Each file of a run asks, and the picture need not be copied for each.
bool isCopyOf(const fs::path& copy, const fs::path& picture) {
    std::error_code error;
    const auto isAsOf = [&](auto property) {
        const auto ofCopy = property(copy, error);
        return !error && ofCopy == property(picture, error) && !error;
    };
    return isAsOf([](const fs::path& file, std::error_code& why) { return fs::file_size(file, why); }) &&
           isAsOf([](const fs::path& file, std::error_code& why) { return fs::last_write_time(file, why); });
}

Outcome writeThumbnail(jobs::JobWork& work, const fs::path& file, const platform::CommandText& command) {
    if (std::optional<Outcome> refused = work.runner.copyForSafety(file)) return *refused;
    return work.runner.runWriteLine(file, command);
}

}  // namespace

fs::path usablePicture(const app::AppContext& context, app::CommandForm form, const fs::path& picture) {
    if (form == app::CommandForm::Designed || !isNamePattern(exiftool::fileWord(picture))) return picture;
    const fs::path copy = context.tempPath / kPlainName;
    return isCopyOf(copy, picture) || platform::copyFile(picture, copy) == 0 ? copy : fs::path();
}

bool isJpegFile(const fs::path& file) {
    const auto mapped = platform::MappedFile::Open(file);
    return mapped != nullptr && kindOfPayload(mapped->bytes()) == PayloadKind::Jpeg;
}

jobs::Job replaceThumbnailJob(const QString& title, const fs::path& picture, const fs::path& file) {
    jobs::Job job{.title = title, .files = {file}};
    job.workOnFile = [picture](jobs::JobWork& work, const fs::path& one) {
        const fs::path usable = usablePicture(work.context, work.form, picture);
        if (usable.empty())
            return Outcome{one, OutcomeKind::NotStarted,
                           app::spokenText(text::kPictureNotCopied) + " - " + platform::narrow(picture)};
        return writeThumbnail(work, one, replaceThumbnailCommand(work.context, work.form, usable, one));
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

}  // namespace payload
