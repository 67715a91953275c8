#include "taglists/RemovalOperations.h"

#include "exiftool/WriteCommands.h"
#include "jobs/OutcomeText.h"
#include "taglists/RemovalLines.h"
#include "taglists/RemovalTexts.h"
#include "taglists/WhatIsLeft.h"

#include <array>
#include <system_error>

namespace taglists {

namespace fs = std::filesystem;
using app::CommandForm;
using jobs::FieldKind;
using jobs::FilledForm;
using jobs::OperationBox;
using jobs::OperationField;

namespace {

enum Control {
    kExif = 1008,
    kIptc = 1009,
    kXmp = 1011,
    kSafetyCopy = 1089,
    kChoose = 1097,
    kSource = 1321,
    kKeepDate = 1678,
    kEverything = 1930,
};

// --- Copying

bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

QString copyTitle(const app::LanguageFile& language, std::size_t files) {
    return language.formatted(text::kCopyTags, {jobs::filesText(language, files)});
}

jobs::Composed copyLine(const jobs::Composing& composing) {
    const FilledForm& filled = composing.filled;
    return exiftool::copyTagsCommand(composing.context, composing.form,
                                     {filled.isTicked(kExif), filled.isTicked(kIptc), filled.isTicked(kXmp)},
                                     filled.path(kSource), composing.file);
}

/// In the designed form ExifTool leaves its own "_original" beside the file.
bool copiesBeforeCopying(CommandForm form, const FilledForm&) {
    return form == CommandForm::Corrected;
}

constexpr auto kCopyFields = std::to_array<OperationField>({
    {.control = kSource,
     .kind = FieldKind::File,
     .missing = {.text = text::kNoSuchSource},
     .accepts = isFile,
     .offer = {.button = kChoose, .title = text::kChooseSource}},
});

constexpr auto kCopyBoxes = std::to_array<OperationBox>({{kExif}, {kIptc}, {kXmp}});

constexpr jobs::Operation copying(app::CommandId id) {
    return {.id = id,
            .templateNumber = 10062,
            .title = copyTitle,
            .fields = kCopyFields,
            .boxes = kCopyBoxes,
            .nothingTicked = jobs::NothingTicked::IsTold,
            .noneTicked = {.text = text::kChooseFamilies},
            .focus = kSource,
            .composedAs = jobs::ComposedAs::Line,
            .compose = copyLine,
            .makesSafetyCopies = copiesBeforeCopying};
}

// --- Deleting

QString deleteTitle(const app::LanguageFile& language, std::size_t files) {
    return language.formatted(text::kDeleteMetadata, {jobs::filesText(language, files)});
}

/// In the designed form the boxes of the families mean something either way, and the two below only show what
/// is kept.
bool isEnabledForDeleting(int control, CommandForm form, const FilledForm& filled) {
    const bool isCorrected = form == CommandForm::Corrected;
    if (control == kSafetyCopy || control == kKeepDate) return isCorrected;
    return control == kEverything || !isCorrected || !filled.isTicked(kEverything);
}

void offerDeleting(const jobs::Opening& opening, FilledForm& filled) {
    const app::Settings::DeleteAll& kept = opening.context.settings.deleteAll;
    const bool isCorrected = opening.form == CommandForm::Corrected;
    filled.set(kSafetyCopy, isCorrected ? kept.safetyCopy : kept.boxOfExif);
    filled.set(kKeepDate, isCorrected ? kept.keepDate : kept.boxOfIptc);
}

void keepDeleting(const FilledForm& filled, CommandForm form, app::AppContext& context) {
    app::Settings::DeleteAll& kept = context.settings.deleteAll;
    if (form == CommandForm::Corrected) {
        kept.safetyCopy = filled.isTicked(kSafetyCopy);
        kept.keepDate = filled.isTicked(kKeepDate);
    } else {
        kept.boxOfExif = filled.isTicked(kExif);
        kept.boxOfIptc = filled.isTicked(kIptc);
    }
}

bool copiesBeforeDeleting(CommandForm form, const FilledForm& filled) {
    return form == CommandForm::Designed || filled.isTicked(kSafetyCopy);
}

DeleteAllChoice choiceOf(const FilledForm& filled) {
    return {filled.isTicked(kEverything), filled.isTicked(kExif),     filled.isTicked(kIptc),
            filled.isTicked(kXmp),        filled.isTicked(kKeepDate), filled.isTicked(kSafetyCopy)};
}

jobs::Composed deleteArguments(const jobs::Composing& composing) {
    return deleteAllArguments(composing.form, choiceOf(composing.filled));
}

void tellWhatIsLeftOfChoice(jobs::JobWork& work, const FilledForm& filled,
                            std::span<exiftool::Outcome> outcomes) {
    tellWhatIsLeft(work, askedByChoice(choiceOf(filled)), outcomes);
}

constexpr auto kDeleteFields = std::to_array<OperationField>({
    {.control = kSafetyCopy, .kind = FieldKind::Box},
    {.control = kKeepDate, .kind = FieldKind::Box},
});

constexpr auto kDeleteBoxes = std::to_array<OperationBox>({{kEverything}, {kExif}, {kIptc}, {kXmp}});

constexpr auto kOperations = std::to_array<jobs::Operation>({
    {.id = app::command::kDeleteAll,
     .templateNumber = 176,
     .title = deleteTitle,
     .fields = kDeleteFields,
     .boxes = kDeleteBoxes,
     .nothingTicked = jobs::NothingTicked::IsTold,
     .noneTicked = {.literal = "Please select at least one tag."},
     .focus = kEverything,
     .isEnabled = isEnabledForDeleting,
     .offer = offerDeleting,
     .keep = keepDeleting,
     .compose = deleteArguments,
     .judgeAgain = tellWhatIsLeftOfChoice,
     .makesSafetyCopies = copiesBeforeDeleting},
    copying(app::command::kCopyTagsFromFile),
    copying(app::command::kCopyTags),
});

}  // namespace

std::span<const jobs::Operation> operations() {
    return kOperations;
}

}  // namespace taglists
