#include "app/Program.h"

#include "app/MainWindow.h"
#include "app/Messages.h"
#include "app/ProgressDialog.h"
#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "app/Theme.h"
#include "controls/Icons.h"
#include "platform/Text.h"

#include <QApplication>
#include <QDate>
#include <QFileDialog>

namespace app {

namespace {

// The exit status says nothing: whoever starts the program from a desktop has been told in a message.
constexpr int kStatusOfFailure = 0;

}  // namespace

Program::Program(QApplication& application, const std::filesystem::path& executable)
    : application_(application) {
    QApplication::setApplicationName(QStringLiteral("Tagwright"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tagwright"));
    DerivePaths(context_, executable);
}

Program::~Program() = default;

std::optional<int> Program::start() {
    progress_ = std::make_unique<ProgressDialog>(context_.settings.main.language);
    progress_->HandleCommand(static_cast<int>(ProgressStep::Initializing));
    const QString settingsProblem = PreparePaths(context_, QDate::currentDate());
    applyLook();
    LoadWindowPosition(context_);
    LoadSettingsOrDefaults(context_);
    ResolveTools(context_);

    if (!FindExifTool(context_) && !askForExifTool()) return kStatusOfFailure;
    language_ = std::make_unique<LanguageFile>(context_.installPath, context_.settings.main.language);
    progress_->setLanguage(context_.settings.main.language);
    window_ = std::make_unique<MainWindow>(context_, *language_, *progress_);
    if (!window_->StartSession()) return kStatusOfFailure;
    if (!window_->BuildContents()) {
        progress_->finish();
        ShowMessage(nullptr, {QStringLiteral("Could not initialize the framework!"), MessageIcon::Stop});
        return kStatusOfFailure;
    }
    window_->Show();
    progress_->finish();
    if (!settingsProblem.isEmpty()) window_->TellSettingsProblem(settingsProblem);
    return std::nullopt;
}

bool Program::canStopWaiting() const {
    return progress_ != nullptr && progress_->canStop();
}

void Program::applyLook() {
    const Theme theme = Theme::Of(context_.settings.dark);
    ApplyTheme(application_, theme);
    controls::setDarkIcons(theme.dark);
    QApplication::setWindowIcon(controls::icon(QStringLiteral("tagwright")));
}

bool Program::askForExifTool() {
    progress_->finish();
    ShowMessage(nullptr, {QStringLiteral("Could not find the ExifTool path!\n"
                                         "Please tell Tagwright where ExifTool.exe is installed."),
                          MessageIcon::Stop});
    const QString chosen = QFileDialog::getOpenFileName(nullptr, QStringLiteral("ExifTool"),
                                                        platform::display(context_.installPath));
    if (!chosen.isEmpty()) ChooseExifTool(context_, platform::pathFromText(chosen));
    if (FindExifTool(context_)) return true;
    ShowMessage(nullptr, {QStringLiteral("Could not find the ExifTool path!\nAborting."), MessageIcon::Stop});
    return false;
}

}  // namespace app
