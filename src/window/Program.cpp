#include "window/Program.h"

#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "app/TextNumbers.h"
#include "controls/Icons.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "dialogs/QtTexts.h"
#include "dialogs/Theme.h"
#include "platform/OwnProcess.h"
#include "platform/Text.h"
#include "window/MainWindow.h"

#include <QApplication>
#include <QDate>
#include <QFileDialog>

namespace window {

namespace {

// The exit status says nothing: whoever starts the program from a desktop has been told in a message.
constexpr int kStatus = 0;
/// Far longer than any thread takes that is not stuck.
constexpr std::chrono::seconds kPatienceAtTheEnd{5};

}  // namespace

Program::Program(QApplication& application, const std::filesystem::path& executable)
    : application_(application) {
    QApplication::setApplicationName(QStringLiteral("Tagwright"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tagwright"));
    app::derivePaths(context_, executable);
}

// What had to be done has been done when the window was closed.
Program::~Program() {
    platform::endOwnProcessWithin(kPatienceAtTheEnd, kStatus);
}

std::optional<int> Program::start() {
    progress_ = std::make_unique<dialogs::ProgressDialog>(context_.settings.main.language);
    progress_->handleCommand(static_cast<int>(app::ProgressStep::Initializing));
    const QDate today = QDate::currentDate();
    settingsFaults_ = app::preparePaths(context_, today);
    applyLook();
    app::loadWindowPosition(context_);
    const QString fault = app::loadSettingsOrDefaults(context_);
    if (settingsFaults_.notRead.isEmpty()) settingsFaults_.notRead = fault;
    app::resolveTools(context_);
    language_ = std::make_unique<app::LanguageFile>(context_.installPath, context_.settings.main.language);
    spoken_.emplace(*language_);
    qtTexts_ = dialogs::speakQtTexts(context_.settings.main.language);

    if (!app::FindExifTool(context_) && !askForExifTool()) return kStatus;
    progress_->setLanguage(context_.settings.main.language);
    if (!takeTempFolder(today)) return kStatus;
    window_ = std::make_unique<MainWindow>(context_, *language_, *progress_, *tempFolder_);
    if (!window_->startSession()) return kStatus;
    if (!window_->buildContents()) {
        progress_->finish();
        dialogs::showMessage(
            nullptr, {QStringLiteral("Could not initialize the framework!"), dialogs::MessageIcon::Stop});
        return kStatus;
    }
    hasContents_ = true;
    window_->Show();
    progress_->finish();
    tellFaults();
    tellLanguageGaps();
    return std::nullopt;
}

bool Program::takeTempFolder(const QDate& today) {
    app::OpenedTempFolder opened = app::openTempFolder(context_, today);
    tempFolderProblem_ = opened.problem;
    if (opened.folder) {
        tempFolder_.emplace(std::move(*opened.folder));
        return true;
    }
    progress_->finish();
    // The language file may be what is wrong with the install folder, too.
    const QString root = platform::display(context_.tempRoot);
    const QString text =
        language_->valid() ? language_->formatted(app::text::kTempFolderUnusable, {root, tempFolderProblem_})
                           : root + QStringLiteral(": ") + tempFolderProblem_;
    dialogs::showMessage(nullptr, {text, dialogs::MessageIcon::Stop});
    return false;
}

void Program::tellFaults() {
    const auto& [notRead, notSaved] = settingsFaults_;
    // One reason that bars both is told once.
    if (!notRead.isEmpty() && notRead != notSaved) window_->tellFault(app::text::kSettingsNotRead, {notRead});
    if (!notSaved.isEmpty()) window_->tellFault(app::text::kSettingsNotSaved, {notSaved});
    if (!tempFolderProblem_.isEmpty()) {
        window_->tellFault(app::text::kTempFolderNotCleared,
                           {platform::display(context_.tempRoot), tempFolderProblem_});
    }
}

void Program::tellLanguageGaps() {
    const app::LanguageGaps& gaps = language_->gaps();
    const std::filesystem::path file =
        app::LanguageFile::pathOf(context_.installPath, context_.settings.main.language);
    if (gaps.wholeFile) {
        dialogs::showMessage(window_.get(),
                             {language_->formatted(app::text::kLanguageMissing, {platform::display(file)}),
                              dialogs::MessageIcon::Exclamation});
    } else if (gaps.any()) {
        const bool isEnglish = context_.settings.main.language == app::kEnglishLanguage;
        window_->tellAtStart(language_->formatted(
            isEnglish ? app::text::kEnglishGaps : app::text::kLanguageGaps,
            {platform::display(file.filename()), QString::number(gaps.texts), QString::number(gaps.forms)}));
    }
}

bool Program::canStopWaiting() const {
    return window_ != nullptr && window_->canStopWaiting();
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
    if (!chosen.isEmpty()) {
        const QString problem = app::chooseExifTool(context_, platform::pathFromText(chosen));
        if (!problem.isEmpty()) settingsFaults_.notSaved = problem;
    }
    if (app::FindExifTool(context_)) return true;
    dialogs::showMessage(nullptr, {QStringLiteral("Could not find the ExifTool path!\nAborting."),
                                   dialogs::MessageIcon::Stop});
    return false;
}

}  // namespace window
