#include "window/MainWindow.h"

#include "app/PaneLayout.h"
#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "app/TextNumbers.h"
#include "browser/AddressBar.h"
#include "browser/PlacesPanel.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "controls/Icons.h"
#include "controls/PaneHandle.h"
#include "controls/Ribbon.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "dialogs/Waiting.h"
#include "edit/ValueEditor.h"
#include "exiftool/DocumentTags.h"
#include "jobs/JobRunner.h"
#include "panel/MetadataPanel.h"
#include "panel/PanelTexts.h"
#include "platform/Text.h"
#include "properties/TagSource.h"
#include "window/ContextMenus.h"
#include "window/RibbonContents.h"
#include "window/StatusBar.h"
#include "window/SubjectCommands.h"
#include "window/ToolChoice.h"
#include "window/WindowFeedback.h"
#include "window/WindowParts.h"
#include "window/WindowTexts.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

namespace window {

namespace {

constexpr int kTopBandHeight = 34;
constexpr int kLeftMargin = 8;
constexpr int kDefaultLeftWidth = 240;
constexpr int kDefaultRightWidth = 460;
constexpr QSize kFirstSize(1280, 800);
/// By then an ExifTool that cannot work has ended.
constexpr std::chrono::seconds kTimeToFail{1};

std::vector<std::filesystem::path> itemsOf(const browser::ShellBrowser& list) {
    std::vector<std::filesystem::path> items;
    for (int row = 0; row < list.model().rowCount(); ++row) items.push_back(list.GetItem(row).path);
    return items;
}

}  // namespace

MainWindow::MainWindow(app::AppContext& context, const app::LanguageFile& language,
                       dialogs::ProgressDialog& progress, platform::ProcessFolder& tempFolder)
    : context_(context),
      tempFolder_(tempFolder),
      language_(language),
      progress_(progress),
      labels_(context.settings.main.language, dictionary_),
      parser_(dictionary_, context.settings, ratingMemory_, ratingLog_),
      runner_(context),
      statusBar_(new StatusBar(context, language, this)),
      feedback_(std::make_unique<WindowFeedback>(*this, progress, *statusBar_)),
      waiting_(std::make_unique<dialogs::Waiting>(progress)),
      jobProgress_(std::make_unique<dialogs::ProgressDialog>(context.settings.main.language, this)),
      jobs_(std::make_unique<jobs::JobRunner>(context)),
      readCommands_(context, runner_, *feedback_),
      load_(context, runner_, readCommands_, parser_),
      reader_(context) {
    setObjectName(QStringLiteral("Tagwright"));
    setWindowTitle(QStringLiteral("Tagwright"));
    runner_.setElsewhere([this](const std::function<void()>& work) { waiting_->forWork(work); });
    runner_.setKeepWaiting([this](std::chrono::milliseconds) { return waiting_->isWanted(); });
    waiting_->setEnded([this] { waitHasEnded(); });
    connectProgress();
}

void MainWindow::connectProgress() {
    using dialogs::ProgressDialog;
    using jobs::JobRunner;
    connect(&progress_, &ProgressDialog::StopWaitingChosen, this, [this] { reader_.stop(); });
    connect(jobProgress_.get(), &ProgressDialog::StopWaitingChosen, this, [this] { jobs_->stop(); });
    connect(jobs_.get(), &JobRunner::Began, this,
            [this](const QString& title, std::size_t count, bool countsFiles) {
                hasShownCopyFailure_ = false;
                jobProgress_->beginFiles(title, count, countsFiles);
            });
    connect(jobs_.get(), &JobRunner::FileBegun, this,
            [this](const std::filesystem::path& file, std::size_t number) {
                jobProgress_->showFile(platform::display(file.filename()), number);
            });
    connect(jobs_.get(), &JobRunner::SafetyCopyFailed, this, &MainWindow::showCopyFailure);
    jobs_->setQuestion([this](const QString& question) { return askWhetherToWrite(question); });
    connect(jobs_.get(), &JobRunner::JobEnded, this, [this] { jobProgress_->finish(); });
}

// A box for each of a thousand files could not be got rid of; the outcomes tell the others.
void MainWindow::showCopyFailure(const QString& message) {
    if (std::exchange(hasShownCopyFailure_, true)) return;
    dialogs::showMessage(this, {message, dialogs::MessageIcon::Stop, language_.text(app::text::kErrorTitle)});
}

jobs::JobRunner::Answer MainWindow::askWhetherToWrite(const QString& question) {
    using Answer = jobs::JobRunner::Answer;
    switch (dialogs::showMessage(this, {.text = question,
                                        .icon = dialogs::MessageIcon::Exclamation,
                                        .buttons = QMessageBox::Yes | QMessageBox::YesToAll |
                                                   QMessageBox::No | QMessageBox::NoToAll})) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::YesToAll:
            return Answer::YesToAll;
        case QMessageBox::NoToAll:
            return Answer::NoToAll;
        default:
            return Answer::No;
    }
}

unsigned MainWindow::doings() const {
    const bool reads = reader_.isReading() || (commands_ != nullptr && commands_->reading().isResting());
    return (reads ? kReads : 0U) | (jobs_->isRunning() ? kOperates : 0U) |
           (waiting_->isWaiting() ? kWaits : 0U);
}

bool MainWindow::canStopWaiting() const {
    return progress_.canStop();
}

void MainWindow::stopWaiting() {
    jobs_->stop();
    reader_.stop();
    waiting_->stop();
}

MainWindow::~MainWindow() {
    properties::setTagSource(nullptr);
    // The panel goes after the commands whose states depend on it.
    if (metadataPanel_ != nullptr) metadataPanel_->disconnect(this);
}

bool MainWindow::startSession() {
    using exiftool::ExifToolSession;
    while (true) {
        const int code = session_.StartExifToolSession(context_.tempPath, context_.exifToolPath);
        if (code == ExifToolSession::kStarted) break;
        progress_.finish();
        if (code == ExifToolSession::kNoArgumentFile) {
            dialogs::showMessage(nullptr, {language_.formatted(app::text::kFolderNotWritable,
                                                               {platform::display(context_.tempPath)}),
                                           dialogs::MessageIcon::Stop});
            return false;
        }
        QWidget* parent = isVisible() ? this : nullptr;
        const QString problem = platform::wide(session_.startProblem());
        if (!chooseAnotherExifTool(parent, context_, language_, problem)) return false;
    }
    properties::setTagSource(std::make_shared<exiftool::DocumentTags>(context_.exifToolPath));
    return true;
}

// A tool whose parts are missing, or one that is no ExifTool, starts well and ends at once.
void MainWindow::lookAfterSession() {
    const std::optional<std::string> said = session_.lastWordsWhenEnded();
    if (!said || closed_) return;
    const QString words =
        said->empty() ? language_.text(text::kExifToolSilent) : platform::wide(*said).trimmed();
    const QString problem = platform::display(context_.exifToolPath) + QStringLiteral(": ") + words;
    if (!chooseAnotherExifTool(this, context_, language_, problem) || !startSession()) return;
    startWarmStarter();
    QTimer::singleShot(kTimeToFail, this, &MainWindow::lookAfterSession);
}

bool MainWindow::buildContents() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (!language_.valid()) return false;
    ribbon_ = new controls::Ribbon(this);
    client_ = new QWidget(this);
    client_->setObjectName(QStringLiteral("client"));
    client_->installEventFilter(this);
    layout->addWidget(ribbon_);
    layout->addWidget(client_, 1);
    statusBar_->setParent(client_);
    createHolders();
    loadColumns();
    createBrowser();
    createCommands();
    if (!fillRibbon()) return false;
    connectBrowser();
    openStartFolder();
    createShortcuts();
    refreshCommands();
    refreshStatusBar();
    showStatus(language_.text(app::text::kReady));
    ready_ = true;
    return true;
}

void MainWindow::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    // What makes the commands quick must not make the start slow.
    if (std::exchange(hasPainted_, true)) return;
    QMetaObject::invokeMethod(this, &MainWindow::startWarmStarter, Qt::QueuedConnection);
    QTimer::singleShot(kTimeToFail, this, &MainWindow::lookAfterSession);
}

void MainWindow::startWarmStarter() {
    if (!context_.settings.exifTool.warmStart) return;
    warmStarter_.Start(context_.exifToolPath, context_.installPath / "warm",
                       exiftool::languageCode(context_.settings.exifTool.dataLanguage));
    runner_.setWarmStarter(&warmStarter_);
    reader_.setWarmStarter(&warmStarter_);
    jobs_->setWarmStarter(&warmStarter_);
}

bool MainWindow::fillRibbon() {
    const RibbonContents contents(language_, commands());
    if (!ribbon_->setMarkup(language_.ribbonMarkup(), contents)) return false;
    connect(ribbon_, &controls::Ribbon::MenuAboutToOpen, this, &MainWindow::refreshCommands);
    return true;
}

void MainWindow::createHolders() {
    leftTitle_ = new QLabel(language_.text(app::text::kFoldersTitle), client_);
    leftTitle_->setObjectName(QStringLiteral("leftTitle"));
    leftTitle_->setContentsMargins(12, 0, 8, 0);
    QFont bold = leftTitle_->font();
    bold.setBold(true);
    leftTitle_->setFont(bold);
    leftHolder_ = new QWidget(client_);
    leftHolder_->setObjectName(QStringLiteral("HolderLeft"));
    leftHolder_->setBackgroundRole(QPalette::Base);
    leftHolder_->setAutoFillBackground(true);
    places_ = new browser::PlacesPanel(language_, leftHolder_);
    auto* layout = new QVBoxLayout(leftHolder_);
    layout->setContentsMargins(kLeftMargin, kLeftMargin / 2, 0, 0);
    layout->addWidget(places_);
    metadataPanel_ =
        new panel::MetadataPanel({context_, dictionary_, ratingMemory_, parser_, reader_, load_, *feedback_,
                                  [this](int number) { return language_.text(number); }, &labels_},
                                 client_);
    for (const char* name : {"GPS_HOLDER", "HEXADUMP_HOLDER", "HELP_HOLDER"}) {
        auto* holder = new QWidget(client_);
        holder->setObjectName(QLatin1String(name));
        holder->hide();
        emptyHolders_.push_back(holder);
    }
    leftHandle_ = new controls::PaneHandle(client_);
    rightHandle_ = new controls::PaneHandle(client_);
    connect(leftHandle_, &controls::PaneHandle::DraggedTo, this, &MainWindow::setLeftHolderWidth);
    connect(leftHandle_, &controls::PaneHandle::ResetRequested, this,
            [this] { setLeftHolderWidth(kDefaultLeftWidth); });
    connect(rightHandle_, &controls::PaneHandle::DraggedTo, this,
            [this](int x) { setRightHolderWidth(client_->width() - x); });
    connect(rightHandle_, &controls::PaneHandle::ResetRequested, this,
            [this] { setRightHolderWidth(kDefaultRightWidth); });
}

void MainWindow::createCommands() {
    jobs::OperationParts operations{context_,      language_,  dictionary_, labels_,
                                    ratingMemory_, ratingLog_, runner_,     readCommands_};
    values_ = std::make_unique<edit::ValueEditor>(operations);
    operations.values = values_.get();
    operations.shownItems = [this] { return itemsOf(tabs_->GetSelectedTab().shellBrowser()); };
    operations.shownFolder = [this] { return tabs_->GetSelectedTab().shellBrowser().currentFolder(); };
    parts_ = std::make_unique<WindowParts>(WindowParts{*this, context_, language_, *waiting_, *jobs_,
                                                       dictionary_, runner_, readCommands_, *feedback_,
                                                       operations, *tabs_, *metadataPanel_, *statusBar_});
    commands_ = std::make_unique<SubjectCommands>(
        *parts_, [this] { relayout(); }, [this](app::CommandId id) { Dispatch(id); });
    metadataPanel_->setCommands(commands_->map());
    menus_ = std::make_unique<ContextMenus>(*parts_, commands_->map(), *places_);
    connect(metadataPanel_, &panel::MetadataPanel::CurrentRowChanged, this, &MainWindow::refreshCommands);
    connect(jobs_.get(), &jobs::JobRunner::Began, this, &MainWindow::refreshCommands);
    connect(jobs_.get(), &jobs::JobRunner::JobEnded, this, &MainWindow::refreshCommands);
    connect(metadataPanel_, &panel::MetadataPanel::ValueChosen, this,
            [this](int row, bool altHeld) { commands_->editing().EditTagFromPanel(row, altHeld); });
    connect(metadataPanel_, &panel::MetadataPanel::CommandChosen, this, &MainWindow::Dispatch);
    connect(metadataPanel_, &panel::MetadataPanel::FileVanished, this,
            [this](const std::filesystem::path& file) {
                context_.currentFile.clear();
                showStatus(language_.formatted(panel::text::kFileGone, {platform::display(file.filename())}));
            });
    metadataPanel_->setWholeValue(
        [this](const tags::MetadataRow& row) { return commands_->editing().wholeValueOf(row); });
}

void MainWindow::Dispatch(app::CommandId id) {
    const app::Command* entry = app::findCommand(id);
    if (entry == nullptr || !commands().isBuilt(id)) return;
    if (entry->needsSelection && !parts_->hasSelection()) {
        parts_->tellNothingChosen(app::text::kNoFileSelected);
        return;
    }
    commands().run(id);
    refreshCommands();
}

const CommandMap& MainWindow::commands() const {
    return commands_->map();
}

void MainWindow::refreshCommands() {
    if (tabs_->hasTabs()) commands_->map().refresh();
}

void MainWindow::setRightHolderWidth(int pixels) {
    context_.settings.windowSizes.holderRightWidth = app::rightHolderWidth(pixels);
    relayout();
}

void MainWindow::setLeftHolderWidth(int pixels) {
    context_.settings.windowSizes.holderLeftWidth = std::max(pixels, 1);
    relayout();
}

void MainWindow::relayout() {
    const app::Settings& settings = context_.settings;
    app::PaneLayoutInput input;
    input.client = client_->size();
    input.statusBarHeight = settings.main.showStatusBar ? StatusBar::kHeightPixels : 0;
    input.topBandHeight = kTopBandHeight;
    input.leftShown = settings.main.showFolders;
    input.rightShown = settings.lists.showMetadataWindow;
    input.leftWidth = settings.windowSizes.holderLeftWidth;
    input.rightWidth = app::spreadRightWidth(settings.windowSizes.holderRightWidth, client_->width());
    const app::PaneRects rects = app::PaneLayout(input);

    const auto place = [](QWidget* widget, const QRect& rect) {
        widget->setGeometry(rect);
        widget->setVisible(!rect.isEmpty());
    };
    place(leftTitle_, rects.topBand);
    place(leftHolder_, rects.left);
    place(middle_, rects.middle);
    place(metadataPanel_, rects.right);
    place(leftHandle_, rects.leftHandle);
    place(rightHandle_, rects.rightHandle);
    place(statusBar_,
          QRect(0, client_->height() - input.statusBarHeight, client_->width(), input.statusBarHeight));
    leftHandle_->raise();
    rightHandle_->raise();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (ready_) {
        layout()->activate();
        relayout();
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // Folding the ribbon changes what it leaves to the panes, and not the window.
    if (watched == client_ && event->type() == QEvent::Resize && ready_) relayout();
    return QWidget::eventFilter(watched, event);
}

void MainWindow::Show() {
    const app::Settings::WindowPosition& position = context_.settings.windowPosition;
    const bool maximised = app::startsMaximised(position);
    const int top = maximised ? app::maximisedTop(position.top) : position.top;
    const QRect stored(QPoint(position.left, top), QPoint(position.right - 1, position.bottom - 1));
    resize(kFirstSize);
    // A rectangle of a screen that is no longer there would open the window where nobody sees it. To that of
    // a maximised one the window returns.
    if (stored.isValid() && stored.left() >= 0 && QGuiApplication::screenAt(stored.center()) != nullptr)
        setGeometry(stored);
    if (maximised)
        showMaximized();
    else
        show();
    layout()->activate();
    relayout();
    takeLayoutAsLoaded();
    focusFileList();
}

void MainWindow::showStatus(const QString& text) {
    statusBar_->showStatus(text);
}

QString MainWindow::statusText() const {
    return statusBar_->statusText();
}

QString MainWindow::selectionText() const {
    return statusBar_->selectionText();
}

void MainWindow::tellAtStart(const QString& text) {
    showStatus(text);
    keepsStatus_ = activeBrowser().isLoading();
}

void MainWindow::tellFault(int text, std::initializer_list<QString> values) {
    dialogs::showMessage(this, {language_.formatted(text, values), dialogs::MessageIcon::Exclamation});
}

void MainWindow::createShortcuts() {
    // A key is taken even when it does nothing now: the list would understand Alt and an arrow as an arrow.
    const auto add = [this](const QKeySequence& keys, app::CommandId id) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WindowShortcut);
        if (QAction* action = commands().action(id))
            connect(shortcut, &QShortcut::activated, action, &QAction::trigger);
    };
    for (const app::HotKey& key : app::hotKeys()) add(QKeyCombination(key.modifiers, key.key), key.command);
    for (const app::Shortcut& key : app::shortcuts())
        add(QKeySequence::fromString(QLatin1String(key.keys)), key.command);
    auto* toAddress = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_D), this);
    connect(toAddress, &QShortcut::activated, addressBar_, &browser::AddressBar::editPath);
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        if (metadataPanel_->isVisible()) metadataPanel_->focusFilter();
    });
    for (const bool backwards : {false, true}) {
        auto* round =
            new QShortcut(QKeyCombination(backwards ? Qt::ShiftModifier : Qt::NoModifier, Qt::Key_F6), this);
        connect(round, &QShortcut::activated, this, [this, backwards] { goToNextPane(backwards); });
    }
}

void MainWindow::goToNextPane(bool backwards) {
    QWidget* const panes[] = {places_, &activeBrowser().view(), &metadataPanel_->list()};
    std::array<bool, app::kPaneCount> shown{};
    std::optional<app::Pane> current;
    for (std::size_t at = 0; at < app::kPaneCount; ++at) {
        shown[at] = panes[at]->isVisible();
        if (panes[at]->hasFocus()) current = static_cast<app::Pane>(at);
    }
    if (metadataPanel_->isAncestorOf(focusWidget())) current = app::Pane::Tags;
    panes[static_cast<std::size_t>(app::nextPane(current, shown, backwards))]->setFocus(
        backwards ? Qt::BacktabFocusReason : Qt::TabFocusReason);
}

void MainWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && ready_) update();
}

}  // namespace window
