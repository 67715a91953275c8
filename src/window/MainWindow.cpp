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
#include "edit/ValueEditor.h"
#include "panel/MetadataPanel.h"
#include "platform/Text.h"
#include "window/RibbonContents.h"
#include "window/StatusBar.h"
#include "window/SubjectCommands.h"
#include "window/WindowFeedback.h"
#include "window/WindowParts.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace window {

namespace {

constexpr int kTopBandHeight = 34;
constexpr int kLeftMargin = 8;
constexpr int kDefaultLeftWidth = 240;
constexpr int kDefaultRightWidth = 460;
constexpr QSize kFirstSize(1280, 800);

}  // namespace

MainWindow::MainWindow(app::AppContext& context, const app::LanguageFile& language,
                       dialogs::ProgressDialog& progress)
    : context_(context),
      language_(language),
      progress_(progress),
      labels_(context.settings.main.language, dictionary_),
      parser_(dictionary_, context.settings, ratingMemory_, ratingLog_),
      runner_(context),
      statusBar_(new StatusBar(context, language, this)),
      feedback_(std::make_unique<WindowFeedback>(*this, context, progress, *statusBar_,
                                                 [this] { focusFileList(); })),
      readCommands_(context, runner_, *feedback_),
      load_(context, runner_, readCommands_, parser_) {
    setObjectName(QStringLiteral("Tagwright"));
    setWindowTitle(QStringLiteral("Tagwright"));
    runner_.setKeepWaiting(
        [this](std::chrono::milliseconds elapsed) { return progress_.keepWaiting(elapsed); });
    runner_.setRunEnded([this] { feedback_->runEnded(); });
    runner_.setSafetyCopyFailed([this](const QString& message) { feedback_->SafetyCopyFailed(message); });
}

MainWindow::~MainWindow() = default;

bool MainWindow::startSession() {
    using exiftool::ExifToolSession;
    const int code = session_.StartExifToolSession(context_.tempPath, context_.exifToolPath);
    if (code == ExifToolSession::kNoArgumentFile) {
        progress_.finish();
        dialogs::showMessage(nullptr, {language_.formatted(app::text::kFolderNotWritable,
                                                           {platform::display(context_.tempPath)}),
                                       dialogs::MessageIcon::Stop});
    }
    return code == ExifToolSession::kStarted;
}

bool MainWindow::buildContents() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (!createRibbon()) return false;
    client_ = new QWidget(this);
    client_->setObjectName(QStringLiteral("client"));
    layout->addWidget(ribbon_);
    layout->addWidget(client_, 1);
    statusBar_->setParent(client_);
    createHolders();
    loadColumns();
    createBrowser();
    createCommands();
    connectBrowser();
    openStartFolder();
    createShortcuts();
    updateToggles();
    refreshStatusBar();
    showStatus(QStringLiteral("Ready"));
    ready_ = true;
    return true;
}

void MainWindow::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    // What makes the commands quick must not make the start slow.
    if (!std::exchange(hasPainted_, true))
        QMetaObject::invokeMethod(this, &MainWindow::startWarmStarter, Qt::QueuedConnection);
}

void MainWindow::startWarmStarter() {
    if (!context_.settings.exifTool.warmStart) return;
    warmStarter_.Start(context_.exifToolPath, context_.installPath / "warm",
                       exiftool::languageCode(context_.settings.exifTool.dataLanguage));
    runner_.setWarmStarter(&warmStarter_);
}

bool MainWindow::createRibbon() {
    if (!language_.valid()) return false;
    ribbon_ = new controls::Ribbon(this);
    ribbon_->setObjectName(QStringLiteral("ribbon"));
    const RibbonContents contents(language_);
    if (!ribbon_->setMarkup(language_.ribbonMarkup(), contents)) return false;
    connect(ribbon_, &controls::Ribbon::CommandTriggered, this, &MainWindow::Dispatch);
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
    places_ = new browser::PlacesPanel(leftHolder_);
    auto* layout = new QVBoxLayout(leftHolder_);
    layout->setContentsMargins(kLeftMargin, kLeftMargin / 2, 0, 0);
    layout->addWidget(places_);
    metadataPanel_ =
        new panel::MetadataPanel({context_, dictionary_, ratingMemory_, parser_, load_, *feedback_,
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
    jobs::OperationParts operations{context_,   language_, dictionary_,   labels_,   ratingMemory_,
                                    ratingLog_, runner_,   readCommands_, *feedback_};
    values_ = std::make_unique<edit::ValueEditor>(operations);
    operations.values = values_.get();
    parts_ = std::make_unique<WindowParts>(WindowParts{*this, context_, language_, progress_, dictionary_,
                                                       runner_, readCommands_, *feedback_, operations, *tabs_,
                                                       *metadataPanel_, *statusBar_});
    commands_ = std::make_unique<SubjectCommands>(*parts_, [this] { relayout(); });
    connect(metadataPanel_, &panel::MetadataPanel::ValueChosen, this,
            [this](int row, bool altHeld) { commands_->editing().EditTagFromPanel(row, altHeld); });
    connect(metadataPanel_, &panel::MetadataPanel::CommandChosen, this, &MainWindow::Dispatch);
}

void MainWindow::Dispatch(app::CommandId id) {
    const app::Command* entry = app::findCommand(id);
    // A command that came while a tool is being waited for would start a second wait inside the first.
    if (entry == nullptr || !entry->built || progress_.isWaiting()) return;
    if (entry->needsSelection && parts_->selectedFile().empty()) {
        dialogs::showMessage(this,
                             {language_.text(app::text::kNoFileSelected), dialogs::MessageIcon::Information});
        return;
    }
    if (commands_->map().run(id)) updateToggles();
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
    input.rightWidth = settings.windowSizes.holderRightWidth;
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

void MainWindow::Show() {
    const app::Settings::WindowPosition& position = context_.settings.windowPosition;
    const QRect stored(QPoint(position.left, position.top), QPoint(position.right - 1, position.bottom - 1));
    const bool maximised = app::startsMaximised(position);
    resize(kFirstSize);
    // A rectangle of a screen that is no longer there would open the window where nobody sees it.
    if (!maximised && QGuiApplication::screenAt(stored.center()) != nullptr) setGeometry(stored);
    if (maximised)
        showMaximized();
    else
        show();
    layout()->activate();
    relayout();
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

void MainWindow::tellSettingsProblem(const QString& why) {
    dialogs::showMessage(
        this, {language_.formatted(app::text::kSettingsNotSaved, {why}), dialogs::MessageIcon::Exclamation});
}

void MainWindow::updateToggles() {
    const app::Settings& settings = context_.settings;
    const std::pair<app::CommandId, bool> states[] = {
        {app::command::kShowFolders, settings.main.showFolders},
        {app::command::kShowStatusBar, settings.main.showStatusBar},
        {app::command::kMetadataPanel, settings.lists.showMetadataWindow},
        {app::command::kCheckBoxes, settings.listView.showCheckBox},
        {app::command::kShowHidden, tabs_->showHidden()},
    };
    for (const auto& [id, checked] : states) ribbon_->setChecked(id, checked);
    for (int view = 1; view <= 4; ++view)
        ribbon_->setChecked(app::command::kViewDetails - 1 + view, settings.main.viewMode == view);
    for (const app::Command& entry : app::commandTable()) {
        if (entry.id > app::command::kSortBy && entry.id < app::command::kGroupBy)
            ribbon_->setChecked(entry.id, settings.main.sortMode == entry.id - app::command::kSortBy);
    }
}

void MainWindow::createShortcuts() {
    for (const app::HotKey& key : app::hotKeys()) {
        auto* shortcut = new QShortcut(QKeySequence(QKeyCombination(key.modifiers, key.key)), this);
        shortcut->setContext(Qt::WindowShortcut);
        // A reserved key is taken and does nothing.
        if (key.command != 0)
            connect(shortcut, &QShortcut::activated, this, [this, id = key.command] { Dispatch(id); });
    }
    for (const app::Shortcut& key : app::shortcuts()) {
        auto* shortcut = new QShortcut(QKeySequence::fromString(QLatin1String(key.keys)), this);
        connect(shortcut, &QShortcut::activated, this, [this, id = key.command] { Dispatch(id); });
    }
    auto* toAddress = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_D), this);
    connect(toAddress, &QShortcut::activated, addressBar_, &browser::AddressBar::editPath);
}

void MainWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && ready_) update();
}

}  // namespace window
