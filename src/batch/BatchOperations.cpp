#include "batch/BatchOperations.h"

#include "batch/BatchLines.h"
#include "batch/BatchTexts.h"

#include <array>

namespace batch {

namespace {

using jobs::Composed;
using jobs::ComposedAs;
using jobs::Composing;

Composed fileDate(const Composing& composing) {
    return fileDateLine(composing.context, composing.form, composing.file);
}

Composed shutterCount(const Composing& composing) {
    return shutterCountLine(composing.context, composing.form, composing.file);
}

Composed dateAndMake(const Composing& composing) {
    return dateAndCameraArguments(composing.form, CameraPart::Make);
}

Composed dateAndModel(const Composing& composing) {
    return dateAndCameraArguments(composing.form, CameraPart::Model);
}

Composed withoutThumbnail(const Composing& composing) {
    return thumbnailArguments(composing.form, {composing.filesSoFar.begin(), composing.filesSoFar.end()});
}

constexpr auto kOperations = std::to_array<jobs::Operation>({
    {.id = app::command::kFileDateFromPhoto,
     .progressText = text::kSettingFileDates,
     .composedAs = ComposedAs::HiddenLine,
     .compose = fileDate},
    {.id = app::command::kRenameByShutterCount,
     .progressText = text::kRenamingByShutterCount,
     .composedAs = ComposedAs::HiddenLine,
     .compose = shutterCount,
     .makesSafetyCopies = jobs::never,
     .onlyRenames = true},
    {.id = app::command::kRenameByDateAndMake,
     .progressText = text::kRenamingByDateAndMaker,
     .compose = dateAndMake,
     .onlyRenames = true},
    {.id = app::command::kRenameByDateAndModel,
     .progressText = text::kRenamingByDateAndModel,
     .compose = dateAndModel,
     .onlyRenames = true},
    {.id = app::command::kRemoveThumbnail,
     .progressText = text::kRemovingThumbnails,
     .compose = withoutThumbnail},
});

}  // namespace

std::span<const jobs::Operation> operations() {
    return kOperations;
}

}  // namespace batch
