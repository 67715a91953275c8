#include "window/Program.h"

#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "controls/Icons.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "dialogs/Theme.h"
#include "platform/Text.h"
#include "window/MainWindow.h"

#include <QApplication>
#include <QDate>
#include <QFileDialog>

namespace window {

namespace {

// The exit status says nothing: whoever starts the program from a desktop has been told in a message.
constexpr int kStatusOfFailure = 0;

}  // namespace

Program::Program(QApplication& application, const std::filesystem::path& executable)
    : application_(application) {
    QApplication::setApplicationName(QStringLiteral("Tagwright"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tagwright"));
    app::derivePaths(context_, executable);
}

Program::~Program() = default;

std::optional<int> Program::start() {
    progress_ = std::make_unique<dialogs::ProgressDialog>(context_.settings.main.language);
    progress_->handleCommand(static_cast<int>(app::ProgressStep::Initializing));
    const QString settingsProblem = app::preparePaths(context_, QDate::currentDate());
    applyLook();
    app::loadWindowPosition(context_);
    app::loadSettingsOrDefaults(context_);
    app::resolveTools(context_);

    if (!app::FindExifTool(context_) && !askForExifTool()) return kStatusOfFailure;
    language_ = std::make_unique<app::LanguageFile>(context_.installPath, context_.settings.main.language);
    progress_->setLanguage(context_.settings.main.language);
    window_ = std::make_unique<MainWindow>(context_, *language_, *progress_);
    if (!window_->startSession()) return kStatusOfFailure;
    if (!window_->buildContents()) {
        progress_->finish();
        dialogs::showMessage(
            nullptr, {QStringLiteral("Could not initialize the framework!"), dialogs::MessageIcon::Stop});
        return kStatusOfFailure;
    }
    window_->Show();
    progress_->finish();
    if (!settingsProblem.isEmpty()) window_->tellSettingsProblem(settingsProblem);
    return std::nullopt;
}

bool Program::canStopWaiting() const {
    return progress_ != nullptr && progress_->canStop();
}

void Program::applyLook() {
    const dialogs::Theme theme = dialogs::Theme::of(context_.settings.dark);
    dialogs::applyTheme(application_, theme);
    controls::setDarkIcons(theme.dark);
    QApplication::setWindowIcon(controls::icon(QStringLiteral("tagwright")));
}

bool Program::askForExifTool() {
    progress_->finish();
    dialogs::showMessage(nullptr, {QStringLiteral("Could not find the ExifTool path!\n"
                                                  "Please tell Tagwright where ExifTool.exe is installed."),
                                   dialogs::MessageIcon::Stop});
    const QString chosen = QFileDialog::getOpenFileName(nullptr, QStringLiteral("ExifTool"),
                                                        platform::display(context_.installPath));
    if (!chosen.isEmpty()) app::chooseExifTool(context_, platform::pathFromText(chosen));
    if (app::FindExifTool(context_)) return true;
    dialogs::showMessage(nullptr, {QStringLiteral("Could not find the ExifTool path!\nAborting."),
                                   dialogs::MessageIcon::Stop});
    return false;
}

}  // namespace window
