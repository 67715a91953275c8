#include "dialogs/FileChooser.h"

#include "platform/Text.h"

#include <QFileDialog>

namespace dialogs {

namespace fs = std::filesystem;

namespace {

void prepare(QFileDialog& dialog, const FileQuestion& question) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(question.title);
    if (!question.types.isEmpty()) dialog.setNameFilters(question.types);
    if (!question.preselectedType.isEmpty()) dialog.selectNameFilter(question.preselectedType);
    dialog.setDefaultSuffix(question.defaultExtension);
    if (!question.nameLabel.isEmpty()) dialog.setLabelText(QFileDialog::FileName, question.nameLabel);
    std::error_code error;
    if (fs::is_directory(question.start, error)) {
        dialog.setDirectory(platform::display(question.start));
    } else if (!question.start.empty()) {
        dialog.setDirectory(platform::display(question.start.parent_path()));
        dialog.selectFile(platform::display(question.start.filename()));
    }
}

fs::path ask(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().front().toStdString();
}

}  // namespace

fs::path chooseFileToOpen(QWidget* parent, const FileQuestion& question) {
    QFileDialog dialog(parent);
    prepare(dialog, question);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return ask(dialog);
}

fs::path chooseFileToSave(QWidget* parent, const FileQuestion& question) {
    QFileDialog dialog(parent);
    prepare(dialog, question);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    return ask(dialog);
}

fs::path chooseFolder(QWidget* parent, const QString& title, const fs::path& start) {
    QFileDialog dialog(parent);
    prepare(dialog, {title, {}, {}, {}, start});
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return ask(dialog);
}

}  // namespace dialogs
