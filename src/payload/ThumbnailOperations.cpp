#include "payload/ThumbnailOperations.h"

#include "app/SpokenText.h"
#include "payload/PayloadCommandText.h"
#include "payload/PayloadTexts.h"
#include "payload/ThumbnailWrite.h"
#include "platform/Text.h"

#include <array>

namespace payload {

namespace {

enum Control { kChoose = 1097, kPicture = 1321 };

constexpr const char* kPictureTypes[] = {"JPEG (*.jpg *.jpeg)"};

constexpr auto kFields = std::to_array<jobs::OperationField>({
    {.control = kPicture,
     .kind = jobs::FieldKind::File,
     .missing = {.text = text::kNoJpeg},
     .accepts = isJpegFile,
     .offer = {.button = kChoose, .titleLiteral = "Select a JPEG file", .types = kPictureTypes}},
});

QString embedTitle(const app::LanguageFile& language, std::size_t files) {
    return language.formatted(files == 1 ? text::kEmbedTitleOne : text::kEmbedTitle,
                              {QString::number(files)});
}

jobs::Composed embedLine(const jobs::Composing& composing) {
    const std::filesystem::path picture = composing.filled.path(kPicture);
    const std::filesystem::path usable = usablePicture(composing.context, composing.form, picture);
    if (usable.empty())
        return {exiftool::OutcomeKind::NotStarted,
                app::spokenText(text::kPictureNotCopied) + " - " + platform::narrow(picture)};
    return addThumbnailCommand(composing.context, composing.form, usable, composing.file);
}

constexpr auto kOperations = std::to_array<jobs::Operation>({
    {.id = app::command::kEmbedThumbnail,
     .templateNumber = 157,
     .title = embedTitle,
     .progressText = text::kEmbedProgress,
     .fields = kFields,
     .focus = kPicture,
     .composedAs = jobs::ComposedAs::Line,
     .compose = embedLine,
     .designed = {.emptiesReport = true, .rest = std::chrono::milliseconds(300)}},
});

}  // namespace

std::span<const jobs::Operation> operations() {
    return kOperations;
}

}  // namespace payload
