#include "taglists/DeleteAll.h"

#include "dialogs/Messages.h"
#include "taglists/RemovalTexts.h"
#include "taglists/Removals.h"

#include <QAbstractButton>

namespace taglists {

namespace {

enum Control {
    kEverything = 1930,
    kExif = 1008,
    kIptc = 1009,
    kXmp = 1011,
    kSafetyCopy = 1089,
    kKeepDate = 1678,
};

}  // namespace

DeleteAll::DeleteAll(const jobs::OperationParts& parts, app::Settings::DeleteAll& settings,
                     std::vector<std::filesystem::path> files, QWidget* parent)
    : DarkModeDialogBase(parts.language, kTemplate, parent),
      parts_(parts),
      form_(app::commandFormOf(parts.context)),
      settings_(settings),
      files_(std::move(files)) {
    setWindowTitle(
        parts_.language.formatted(text::kDeleteMetadata, {filesText(parts_.language, files_.size())}));
    showSettings();
    if (auto* everything = control<QAbstractButton>(kEverything)) {
        connect(everything, &QAbstractButton::toggled, this, &DeleteAll::enableFamilies);
        everything->setFocus();
    }
    enableFamilies();
}

void DeleteAll::showSettings() {
    const bool corrected = form_ == app::CommandForm::Corrected;
    const auto show = [&](int controlId, bool ticked) {
        auto* box = control<QAbstractButton>(controlId);
        if (box == nullptr) return;
        box->setChecked(ticked);
        box->setEnabled(corrected);
    };
    show(kSafetyCopy, corrected ? settings_.safetyCopy : settings_.boxOfExif);
    show(kKeepDate, corrected ? settings_.keepDate : settings_.boxOfIptc);
}

void DeleteAll::storeSettings() {
    if (form_ == app::CommandForm::Corrected) {
        settings_.safetyCopy = isTicked(kSafetyCopy);
        settings_.keepDate = isTicked(kKeepDate);
    } else {
        settings_.boxOfExif = isTicked(kExif);
        settings_.boxOfIptc = isTicked(kIptc);
    }
}

void DeleteAll::enableFamilies() {
    // In the designed form the boxes mean something either way.
    const bool enabled = form_ == app::CommandForm::Designed || !isTicked(kEverything);
    for (const int family : {kExif, kIptc, kXmp}) {
        if (auto* box = control<QAbstractButton>(family)) box->setEnabled(enabled);
    }
}

bool DeleteAll::isTicked(int controlId) const {
    const auto* box = control<QAbstractButton>(controlId);
    return box != nullptr && box->isChecked();
}

void DeleteAll::accept() {
    storeSettings();
    const DeleteAllChoice choice{isTicked(kEverything), isTicked(kExif), isTicked(kIptc), isTicked(kXmp),
                                 settings_.keepDate};
    if (choice.choosesNothing()) {
        dialogs::showMessage(
            this, {QStringLiteral("Please select at least one tag."), dialogs::MessageIcon::Exclamation});
        return;
    }
    const bool makeCopies = form_ == app::CommandForm::Designed || settings_.safetyCopy;
    setJob(deleteAllTagsJob(windowTitle(), choice, makeCopies, files_));
    DarkModeDialogBase::accept();
}

}  // namespace taglists
