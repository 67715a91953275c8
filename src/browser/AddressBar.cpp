#include "browser/AddressBar.h"

#include "app/CommandTable.h"
#include "app/TextNumbers.h"
#include "browser/AddressPath.h"
#include "browser/BrowserTexts.h"
#include "browser/TabContainer.h"
#include "controls/Icons.h"
#include "platform/Text.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringListModel>
#include <QToolButton>

namespace browser {
namespace {

constexpr int kRowHeight = 32;
constexpr int kEditHeight = 24;
constexpr int kGap = 4;
constexpr std::size_t kMostOffers = 500;

/// The folders inside of a folder, by their names; "." leads to hidden ones only when asked for.
QStringList folderNamesIn(const std::filesystem::path& parent) {
    QStringList names;
    std::error_code failure;
    std::filesystem::directory_iterator entry(
        parent, std::filesystem::directory_options::skip_permission_denied, failure);
    for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
        std::error_code ignored;
        const QString name = platform::display(entry->path().filename());
        // A name that is no text could not be typed.
        if (name.contains(QChar::ReplacementCharacter) || !entry->is_directory(ignored)) continue;
        names << name;
        if (static_cast<std::size_t>(names.size()) >= kMostOffers) break;
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

}  // namespace

AddressBar::AddressBar(TabContainer& tabs, const app::LanguageFile& language, QWidget* parent)
    : QWidget(parent), tabs_(tabs), language_(language) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kGap, kGap, kGap, kGap);
    layout->setSpacing(kGap);
    back_ = addButton(QStringLiteral("Back"), QStringLiteral("go-previous"), app::command::kBackOfMenu);
    forward_ = addButton(QStringLiteral("Forward"), QStringLiteral("go-next"), app::command::kForwardOfMenu);
    up_ = addButton(QStringLiteral("Up"), QStringLiteral("go-up"), text::kUpOneLevel);
    makeEdit();
    setFixedHeight(kRowHeight);
    const auto controller = [this]() -> ShellNavigationController& {
        return tabs_.GetSelectedTab().shellBrowser().navigationController();
    };
    connect(back_, &QToolButton::clicked, this, [controller] { controller().GoToOffset(-1); });
    connect(forward_, &QToolButton::clicked, this, [controller] { controller().GoToOffset(1); });
    connect(up_, &QToolButton::clicked, this, [this] { tabs_.GetSelectedTab().shellBrowser().GoUp(); });
    connectTabs();
}

AddressBar::~AddressBar() = default;

QToolButton* AddressBar::addButton(const QString& name, const QString& icon, int tipNumber) {
    const QString tip = language_.text(tipNumber);
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(controls::icon(icon));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFixedSize(kEditHeight + kGap, kEditHeight);
    button->setEnabled(false);
    button->setFocusPolicy(Qt::NoFocus);
    layout()->addWidget(button);
    return button;
}

void AddressBar::makeEdit() {
    edit_ = new QLineEdit(this);
    edit_->setObjectName(QStringLiteral("Address"));
    edit_->setAccessibleName(language_.text(app::text::kFolder));
    edit_->setFixedHeight(kEditHeight);
    icon_ = edit_->addAction(FileIcons::folder(), QLineEdit::LeadingPosition);
    offers_ = new QStringListModel(this);
    completer_ = new QCompleter(offers_, this);
    completer_->setCompletionMode(QCompleter::PopupCompletion);
    completer_->setCaseSensitivity(Qt::CaseInsensitive);
    edit_->setCompleter(completer_);
    edit_->installEventFilter(this);
    layout()->addWidget(edit_);
    connect(edit_, &QLineEdit::returnPressed, this, &AddressBar::OnGo);
    connect(edit_, &QLineEdit::textEdited, this, &AddressBar::offerFolders);
}

void AddressBar::connectTabs() {
    const auto show = [this](const Tab& tab) {
        if (tabs_.hasTabs() && &tabs_.GetSelectedTab() == &tab) showTab(tab);
    };
    connections_.emplace_back(tabs_.TabSelected.connect(show));
    connections_.emplace_back(tabs_.TabNavigationCompleted.connect([this, show](const Tab& tab) {
        // A folder that took its time must not replace the address that is being typed by now.
        if (!edit_->hasFocus() || !edit_->isModified())
            show(tab);
        else if (&tabs_.GetSelectedTab() == &tab)
            showHistory(tab);
    }));
    connections_.emplace_back(
        tabs_.TabNavigationStarted.connect([this](const Tab& tab, const std::filesystem::path& folder) {
            if (tabs_.hasTabs() && &tabs_.GetSelectedTab() == &tab) edit_->setText(platform::display(folder));
        }));
    if (tabs_.hasTabs()) showTab(tabs_.GetSelectedTab());
}

QString AddressBar::text() const {
    return edit_->text();
}

void AddressBar::editPath() {
    edit_->setFocus(Qt::ShortcutFocusReason);
    edit_->selectAll();
}

void AddressBar::showTab(const Tab& tab) {
    edit_->setText(platform::display(tab.shellBrowser().currentFolder()));
    showHistory(tab);
}

void AddressBar::showHistory(const Tab& tab) {
    const ShellNavigationController& controller = tab.shellBrowser().navigationController();
    back_->setEnabled(controller.canGoToOffset(-1));
    forward_->setEnabled(controller.canGoToOffset(1));
    up_->setEnabled(controller.canGoUp());
    const std::shared_ptr<HistoryEntry> entry = controller.currentEntryShared();
    showIcon(entry.get());
    entryConnection_.disconnect();
    if (entry)
        entryConnection_ = entry->addUpdatedObserver(
            [this](const HistoryEntry& updated, HistoryEntry::PropertyType) { showIcon(&updated); });
}

void AddressBar::showIcon(const HistoryEntry* entry) {
    const std::optional<int> index = entry == nullptr ? std::nullopt : entry->systemIconIndex();
    icon_->setIcon(
        FileIcons::folder(index ? IconNames::instance().nameOf(*index) : QStringLiteral("folder")));
}

void AddressBar::restore() {
    if (!tabs_.hasTabs()) return;
    dropOffers();
    showTab(tabs_.GetSelectedTab());
    tabs_.GetSelectedTab().shellBrowser().view().setFocus();
}

void AddressBar::OnGo() {
    if (!tabs_.hasTabs()) return;
    dropOffers();
    ShellBrowser& shell = tabs_.GetSelectedTab().shellBrowser();
    const QString typed = edit_->text();
    // The text of a folder whose name is no text does not lead back to it.
    const bool untouched = typed == platform::display(shell.currentFolder());
    const std::filesystem::path path =
        untouched ? shell.currentFolder() : absolutePath(typed, shell.currentFolder());
    const long result = isUrl(typed) ? shell.navigationController().BrowseFolder(typed)
                                     : shell.navigationController().BrowseFolder(path);
    if (result != kNavigationOk) {
        StatusMessage(language_.formatted(navigationFailureText(result), {typed}));
        return;
    }
    shell.view().setFocus();
}

bool AddressBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == edit_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape && !completer_->popup()->isVisible()) {
            restore();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// --- folder names while typing

void AddressBar::offerFolders(const QString& text) {
    if (!tabs_.hasTabs() || isUrl(text)) return;
    const qsizetype separator = text.lastIndexOf(u'/');
    const std::filesystem::path base = tabs_.GetSelectedTab().shellBrowser().currentFolder();
    const QString typedParent = separator < 0 ? QString() : text.left(separator + 1);
    const std::filesystem::path parent = typedParent.isEmpty() ? base : absolutePath(typedParent, base);
    // Offers begin with what was typed, so a relative path has offers of its own.
    const std::filesystem::path shown = platform::pathFromText(typedParent);
    if (shown == offeredFolder_ && offers_->rowCount() > 0) return;
    folderQueue_.clear();
    const int request = ++lastRequest_;
    folderQueue_.push(request, [this, request, parent, shown] {
        const QStringList names = folderNamesIn(parent);
        QMetaObject::invokeMethod(
            this, [this, request, shown, names] { takeFolders(request, shown, names); },
            Qt::QueuedConnection);
    });
}

/// What was typed has been taken or given up: a list of offers that is open, or still comes, would keep the
/// keyboard.
void AddressBar::dropOffers() {
    folderQueue_.clear();
    ++lastRequest_;
    completer_->popup()->hide();
}

void AddressBar::takeFolders(int request, const std::filesystem::path& parent, const QStringList& names) {
    if (request != lastRequest_) return;
    offeredFolder_ = parent;
    const QString prefix = platform::display(parent);
    QStringList offers;
    for (const QString& name : names) offers << prefix + name;
    offers_->setStringList(offers);
    if (edit_->hasFocus()) completer_->complete();
}

}  // namespace browser
