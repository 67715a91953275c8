#include "jobs/BatchNoFilesSelectedDialog.h"

#include "dialogs/FileChooser.h"
#include "dialogs/Messages.h"
#include "jobs/JobTexts.h"
#include "platform/Text.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace jobs {

namespace fs = std::filesystem;

namespace {

constexpr int kNameWidth = 400;  // pixels

}  // namespace

BatchNoFilesSelectedDialog::BatchNoFilesSelectedDialog(const app::LanguageFile& languageFile,
                                                       const fs::path& shownFolder, QWidget* parent)
    : DarkModeDialogBase(languageFile, kTemplate, parent),
      language_(languageFile),
      shownFolder_(shownFolder) {
    typedFolder_ = control<QRadioButton>(kTypedFolderControl);
    edit_ = control<QLineEdit>(kFolderControl);
    auto* shown = control<QRadioButton>(kShownFolderControl);
    auto* choose = control<QPushButton>(kChooseControl);
    if (typedFolder_ == nullptr || edit_ == nullptr || shown == nullptr || choose == nullptr) return;
    if (auto* name = control<QLabel>(kShownFolderName)) {
        name->setText(fontMetrics().elidedText(platform::display(shownFolder).simplified(), Qt::ElideMiddle,
                                               kNameWidth));
        name->setToolTip(platform::display(shownFolder).toHtmlEscaped());
    }
    shown->setChecked(true);
    connect(typedFolder_, &QRadioButton::toggled, this, &BatchNoFilesSelectedDialog::updateControls);
    connect(choose, &QPushButton::clicked, this, &BatchNoFilesSelectedDialog::chooseFolder);
    updateControls();
    shown->setFocus();
}

fs::path BatchNoFilesSelectedDialog::folder() const {
    if (typedFolder_ == nullptr || !typedFolder_->isChecked()) return shownFolder_;
    if (!chosen_.empty() && edit_->text() == platform::display(chosen_)) return chosen_;
    return platform::pathFromText(edit_->text());
}

bool BatchNoFilesSelectedDialog::withSubfolders() const {
    const auto* box = control<QCheckBox>(kSubfoldersControl);
    return box != nullptr && box->isChecked();
}

void BatchNoFilesSelectedDialog::accept() {
    std::error_code error;
    if (folder().is_absolute() && fs::is_directory(folder(), error)) {
        DarkModeDialogBase::accept();
        return;
    }
    dialogs::showMessage(this, {language_.formatted(text::kNoSuchFolder, {platform::display(folder())}),
                                dialogs::MessageIcon::Exclamation});
    if (edit_ == nullptr) return;
    edit_->setFocus();
    edit_->selectAll();
}

void BatchNoFilesSelectedDialog::chooseFolder() {
    std::error_code error;
    const fs::path start = fs::is_directory(folder(), error) ? folder() : shownFolder_;
    const fs::path chosen = dialogs::chooseFolder(this, language_.text(text::kChooseFolder), start);
    if (chosen.empty()) return;
    chosen_ = chosen;
    typedFolder_->setChecked(true);
    edit_->setText(platform::display(chosen));
}

void BatchNoFilesSelectedDialog::updateControls() {
    edit_->setEnabled(typedFolder_->isChecked());
    if (typedFolder_->isChecked()) edit_->setFocus();
}

}  // namespace jobs
