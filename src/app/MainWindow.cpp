#include "app/MainWindow.h"

#include "app/MainWindowFeedback.h"
#include "app/Messages.h"
#include "app/PaneLayout.h"
#include "app/ProgressDialog.h"
#include "app/RibbonContents.h"
#include "app/SettingsStore.h"
#include "app/SizeText.h"
#include "app/StartUp.h"
#include "app/TextNumbers.h"
#include "browser/AddressBar.h"
#include "browser/PlacesPanel.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "controls/Icons.h"
#include "controls/PaneHandle.h"
#include "controls/Ribbon.h"
#include "platform/Text.h"
#include "tags/MetadataPanel.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace app {

namespace {

constexpr int kStatusBarHeight = 26;
constexpr int kTopBandHeight = 34;
constexpr int kLeftMargin = 8;
constexpr int kDefaultLeftWidth = 240;
constexpr int kDefaultRightWidth = 460;
constexpr QSize kFirstSize(1280, 800);

}  // namespace

MainWindow::MainWindow(AppContext& context, const LanguageFile& language, ProgressDialog& progress)
    : context_(context),
      language_(language),
      progress_(progress),
      labels_(context.settings.main.language, dictionary_),
      parser_(dictionary_, context.settings, ratingMemory_, ratingLog_),
      runner_(context),
      feedback_(std::make_unique<Feedback>(*this, progress)),
      readCommands_(context, runner_, *feedback_),
      load_(context, runner_, readCommands_, parser_) {
    setObjectName(QStringLiteral("Tagwright"));
    setWindowTitle(QStringLiteral("Tagwright"));
    runner_.setKeepWaiting(
        [this](std::chrono::milliseconds elapsed) { return progress_.keepWaiting(elapsed); });
    runner_.setRunEnded([this] { feedback_->RunEnded(); });
    runner_.setSafetyCopyFailed([this](const QString& message) { feedback_->SafetyCopyFailed(message); });
}

MainWindow::~MainWindow() = default;

bool MainWindow::StartSession() {
    using exiftool::ExifToolSession;
    const int code = session_.StartExifToolSession(context_.tempPath, context_.exifToolPath);
    if (code == ExifToolSession::kNoArgumentFile) {
        progress_.finish();
        ShowMessage(nullptr,
                    {language_.formatted(text::kFolderNotWritable, {platform::display(context_.tempPath)}),
                     MessageIcon::Stop});
    }
    return code == ExifToolSession::kStarted;
}

bool MainWindow::BuildContents() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (!createRibbon()) return false;
    client_ = new QWidget(this);
    client_->setObjectName(QStringLiteral("client"));
    layout->addWidget(ribbon_);
    layout->addWidget(client_, 1);
    createStatusBar();
    createHolders();
    loadColumns();
    createBrowser();
    connectBrowser();
    openStartFolder();
    createShortcuts();
    updateToggles();
    RefreshStatusBar();
    ShowStatus(QStringLiteral("Ready"));
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
                       exiftool::LanguageCode(context_.settings.exifTool.dataLanguage));
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

void MainWindow::createStatusBar() {
    statusBar_ = new QWidget(client_);
    statusBar_->setObjectName(QStringLiteral("statusBar"));
    statusText_ = new QLabel(statusBar_);
    statusText_->setObjectName(QStringLiteral("statusText"));
    statusText_->setTextFormat(Qt::PlainText);
    // A long text is cut at the edge and never widens the window.
    statusText_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    selectionText_ = new QLabel(statusBar_);
    selectionText_->setObjectName(QStringLiteral("selectionText"));
    selectionText_->setTextFormat(Qt::PlainText);
    auto* layout = new QHBoxLayout(statusBar_);
    layout->setContentsMargins(12, 0, 12, 0);
    layout->setSpacing(16);
    layout->addWidget(statusText_, 1);
    layout->addWidget(selectionText_);
}

void MainWindow::createHolders() {
    leftTitle_ = new QLabel(language_.text(text::kFoldersTitle), client_);
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
        new tags::MetadataPanel({context_, dictionary_, ratingMemory_, parser_, load_, *feedback_,
                                 [this](int number) { return language_.text(number); }, &labels_},
                                client_);
    connect(metadataPanel_, &tags::MetadataPanel::ValueChosen, this, &MainWindow::EditTagFromPanel);
    connect(metadataPanel_, &tags::MetadataPanel::CommandChosen, this, &MainWindow::Dispatch);
    for (const char* name : {"GPS_HOLDER", "HEXADUMP_HOLDER", "HELP_HOLDER"}) {
        auto* holder = new QWidget(client_);
        holder->setObjectName(QLatin1String(name));
        holder->hide();
        emptyHolders_.push_back(holder);
    }
    leftHandle_ = new controls::PaneHandle(client_);
    rightHandle_ = new controls::PaneHandle(client_);
    connect(leftHandle_, &controls::PaneHandle::DraggedTo, this, &MainWindow::SetLeftHolderWidth);
    connect(leftHandle_, &controls::PaneHandle::ResetRequested, this,
            [this] { SetLeftHolderWidth(kDefaultLeftWidth); });
    connect(rightHandle_, &controls::PaneHandle::DraggedTo, this,
            [this](int x) { SetRightHolderWidth(client_->width() - x); });
    connect(rightHandle_, &controls::PaneHandle::ResetRequested, this,
            [this] { SetRightHolderWidth(kDefaultRightWidth); });
}

void MainWindow::SetRightHolderWidth(int pixels) {
    context_.settings.windowSizes.holderRightWidth = RightHolderWidth(pixels);
    Relayout();
}

void MainWindow::SetLeftHolderWidth(int pixels) {
    context_.settings.windowSizes.holderLeftWidth = std::max(pixels, 1);
    Relayout();
}

void MainWindow::Relayout() {
    const Settings& settings = context_.settings;
    PaneLayoutInput input;
    input.client = client_->size();
    input.statusBarHeight = settings.main.showStatusBar ? kStatusBarHeight : 0;
    input.topBandHeight = kTopBandHeight;
    input.leftShown = settings.main.showFolders;
    input.rightShown = settings.lists.showMetadataWindow;
    input.leftWidth = settings.windowSizes.holderLeftWidth;
    input.rightWidth = settings.windowSizes.holderRightWidth;
    const PaneRects rects = PaneLayout(input);

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
        Relayout();
    }
}

void MainWindow::Show() {
    const Settings::WindowPosition& position = context_.settings.windowPosition;
    const QRect stored(QPoint(position.left, position.top), QPoint(position.right - 1, position.bottom - 1));
    const bool maximised = StartsMaximised(position);
    resize(kFirstSize);
    // A rectangle of a screen that is no longer there would open the window where nobody sees it.
    if (!maximised && QGuiApplication::screenAt(stored.center()) != nullptr) setGeometry(stored);
    if (maximised)
        showMaximized();
    else
        show();
    layout()->activate();
    Relayout();
    focusFileList();
}

void MainWindow::ShowStatus(const QString& text) {
    // A name may hold line feeds; the bar has one line.
    QString line = text;
    statusText_->setText(line.replace(u'\n', u' ').replace(u'\r', u' '));
    // What follows may keep the event loop waiting.
    if (statusText_->isVisible()) statusText_->repaint();
}

QString MainWindow::StatusText() const {
    return statusText_->text();
}

QString MainWindow::SelectionText() const {
    return selectionText_->text();
}

void MainWindow::TellSettingsProblem(const QString& why) {
    ShowMessage(this, {language_.formatted(text::kSettingsNotSaved, {why}), MessageIcon::Exclamation});
}

void MainWindow::setRightPanel(bool Settings::Lists::*flag, bool shown) {
    // The four right panels exclude each other.
    context_.settings.lists = {};
    context_.settings.lists.*flag = shown;
    updateToggles();
    Relayout();
}

void MainWindow::updateToggles() {
    const Settings& settings = context_.settings;
    const std::pair<CommandId, bool> states[] = {
        {command::kShowFolders, settings.main.showFolders},
        {command::kShowStatusBar, settings.main.showStatusBar},
        {command::kMetadataPanel, settings.lists.showMetadataWindow},
        {command::kCheckBoxes, settings.listView.showCheckBox},
        {command::kShowHidden, tabs_->showHidden()},
    };
    for (const auto& [id, checked] : states) ribbon_->setChecked(id, checked);
    for (int view = 1; view <= 4; ++view)
        ribbon_->setChecked(command::kViewDetails - 1 + view, settings.main.viewMode == view);
    for (const Command& entry : CommandTable()) {
        if (entry.id > command::kSortBy && entry.id < command::kGroupBy)
            ribbon_->setChecked(entry.id, settings.main.sortMode == entry.id - command::kSortBy);
    }
}

void MainWindow::createShortcuts() {
    for (const HotKey& key : HotKeys()) {
        auto* shortcut = new QShortcut(QKeySequence(QKeyCombination(key.modifiers, key.key)), this);
        shortcut->setContext(Qt::WindowShortcut);
        // A reserved key is taken and does nothing.
        if (key.command != 0)
            connect(shortcut, &QShortcut::activated, this, [this, id = key.command] { Dispatch(id); });
    }
    for (const Shortcut& key : Shortcuts()) {
        auto* shortcut = new QShortcut(QKeySequence::fromString(QLatin1String(key.keys)), this);
        connect(shortcut, &QShortcut::activated, this, [this, id = key.command] { Dispatch(id); });
    }
    auto* toAddress = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_D), this);
    connect(toAddress, &QShortcut::activated, addressBar_, &browser::AddressBar::EditPath);
}

void MainWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && ready_) update();
}

}  // namespace app
