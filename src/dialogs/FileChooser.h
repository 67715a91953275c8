#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>

class QWidget;

namespace dialogs {

/// What a file dialog is to ask.
struct FileQuestion {
    QString title;
    QStringList types = {};            ///< "JPEG image (*.jpg *.jpeg)", as Qt reads them; none: all files
    QString preselectedType = {};      ///< one of types; empty: the first
    QString defaultExtension = {};     ///< without its dot; put behind a name that is typed without one
    std::filesystem::path start = {};  ///< folder, or a file that is proposed
    QString nameLabel = {};            ///< before the name field; empty: the dialog's own
};

/// Each asks modally and gives what was chosen, or nothing when the user cancels. The program's own dialog is
/// used, not the desktop's, so that it looks the same everywhere and scripts can use it. GUI thread.
std::filesystem::path chooseFileToOpen(QWidget* parent, const FileQuestion& question);
/// Asks before an existing file is replaced.
std::filesystem::path chooseFileToSave(QWidget* parent, const FileQuestion& question);
std::filesystem::path chooseFolder(QWidget* parent, const QString& title, const std::filesystem::path& start);

}  // namespace dialogs
