#include "browser/TabContainer.h"

#include "browser/BrowserTexts.h"
#include "controls/Icons.h"
#include "platform/Text.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>

namespace browser {
namespace {

constexpr int kStripHeight = 30;
constexpr int kGap = 4;

QTabBar* makeTabBar(QWidget* parent) {
    auto* bar = new QTabBar(parent);
    bar->setObjectName(QStringLiteral("FolderTabs"));
    bar->setMovable(true);
    bar->setDocumentMode(true);
    bar->setDrawBase(false);
    bar->setExpanding(false);
    bar->setElideMode(Qt::ElideMiddle);
    bar->setUsesScrollButtons(true);
    bar->setFocusPolicy(Qt::TabFocus);
    bar->setIconSize({16, 16});
    return bar;
}

}  // namespace

TabContainer::TabContainer(app::AppContext& context, tags::PropertyCatalogue& catalogue,
                           const app::LanguageFile& language, QStackedWidget& holder, QWidget* parent)
    : QWidget(parent),
      parts_{context, catalogue, icons_, language},
      holder_(holder),
      tabBar_(makeTabBar(this)) {
    auto* add = new QToolButton(this);
    add->setObjectName(QStringLiteral("NewTab"));
    add->setIcon(controls::icon(QStringLiteral("list-add")));
    add->setToolTip(language.text(text::kNewTab));
    add->setAccessibleName(add->toolTip());
    add->setAutoRaise(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, kGap, 0);
    layout->setSpacing(kGap);
    layout->addWidget(tabBar_, 0, Qt::AlignBottom);
    layout->addWidget(add, 0, Qt::AlignVCenter);
    layout->addStretch(1);
    setFixedHeight(kStripHeight);
    tabBar_->installEventFilter(this);
    connect(add, &QToolButton::clicked, this, [this] { duplicateSelectedTab(); });
    connect(tabBar_, &QTabBar::currentChanged, this, &TabContainer::onCurrentChanged);
    tabBar_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tabBar_, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        // By the Menu key the place is none of a tab.
        const int index = tabBar_->tabAt(place);
        TabMenuRequested(index >= 0 ? index : tabBar_->currentIndex(), tabBar_->mapToGlobal(place));
    });
    connect(tabBar_, &QTabBar::tabCloseRequested, this,
            [this](int index) { closeTab(GetTabByIndex(index)); });
}

TabContainer::~TabContainer() {
    tabBar_->disconnect(this);
    parts_.active = nullptr;
    tabs_.clear();
}

// --- making and closing

Tab* TabContainer::CreateNewTab(const std::filesystem::path& folder, const TabSettings& settings) {
    std::error_code failure;
    if (!std::filesystem::is_directory(folder, failure)) return nullptr;
    const int tabId = nextTabId_++;
    Tab& tab = *tabs_.emplace(tabId, std::make_unique<Tab>(tabId, parts_, &holder_)).first->second;
    holder_.addWidget(&tab.shellBrowser().view());
    SetUpNewTab(tab, folder, settings);
    return &tab;
}

bool TabContainer::SetUpNewTab(Tab& tab, const std::filesystem::path& folder, const TabSettings& settings) {
    tab.fixedName_ = settings.name;
    const bool selected = settings.selected.value_or(false) || tabs_.size() == 1;
    {
        // The strip takes the first tab by itself, which is too early: nothing is connected yet.
        const QSignalBlocker blocker(tabBar_);
        const int index = tabBar_->insertTab(settings.index.value_or(tabBar_->count()), FileIcons::folder(),
                                             settings.name.value_or(folderDisplayName(folder)));
        tabBar_->setTabData(index, tab.id());
    }
    tabBar_->setTabsClosable(tabs_.size() > 1);
    connectTab(tab);
    const bool browsed = tab.shellBrowser().BrowseFolder(folder, true) == kNavigationOk;
    if (selected) {
        const QSignalBlocker blocker(tabBar_);
        tabBar_->setCurrentIndex(indexOf(tab));
        onCurrentChanged(tabBar_->currentIndex());
    }
    TabCreated(tab.id(), selected);
    return browsed;
}

void TabContainer::connectTab(Tab& tab) {
    ShellBrowser& shell = tab.shellBrowser();
    auto& connections = tab.connections_;
    connections.emplace_back(
        shell.NavigationStarted.connect([this, &tab](const std::filesystem::path& folder) {
            showNameOf(tab);
            TabNavigationStarted(tab, folder);
        }));
    connections.emplace_back(
        shell.addNavigationCompletedObserver([this, &tab](const std::filesystem::path&, bool) {
            showNameOf(tab);
            TabNavigationCompleted(tab);
        }));
    connections.emplace_back(
        shell.ListSelectionChanged.connect([this, &tab] { TabListSelectionChanged(tab); }));
    connections.emplace_back(shell.ColumnsChanged.connect([this, &tab] { TabColumnsChanged(tab); }));
    connections.emplace_back(
        tab.Updated.connect([this](const Tab& changed, Tab::PropertyType) { showNameOf(changed); }));
    connections.emplace_back(shell.MetadataOutdated.connect([this, &tab] { MetadataOutdated(tab); }));
    connections.emplace_back(
        shell.FileClicked.connect([this, &tab](const std::filesystem::path& file, std::int32_t itemId) {
            FileClicked(tab, file, itemId);
        }));
    connections.emplace_back(shell.FileActivated.connect(
        [this, &tab](const std::filesystem::path& file) { FileActivated(tab, file); }));
    connections.emplace_back(
        shell.FolderSizeCounted.connect([this, &tab](const QString& size) { FolderSizeCounted(tab, size); }));
    connections.emplace_back(shell.MenuRequested.connect(
        [this, &tab](int row, const QPoint& position) { MenuRequested(tab, row, position); }));
    connections.emplace_back(shell.HeaderMenuRequested.connect(
        [this, &tab](const QPoint& position) { HeaderMenuRequested(tab, position); }));
}

Tab* TabContainer::duplicateSelectedTab() {
    if (!hasTabs()) return nullptr;
    TabSettings settings;
    settings.selected = true;
    return CreateNewTab(GetSelectedTab().shellBrowser().currentFolder(), settings);
}

bool TabContainer::closeTab(const Tab& tab) {
    if (tabs_.size() < 2) return false;
    const int tabId = tab.id();
    if (parts_.active == &tab.shellBrowser()) parts_.active = nullptr;
    // Taking it from the strip selects another one.
    tabBar_->removeTab(indexOf(tab));
    tabs_.erase(tabId);
    tabBar_->setTabsClosable(tabs_.size() > 1);
    TabRemoved(tabId);
    return true;
}

// --- which tab

Tab& TabContainer::GetTabByIndex(int index) const {
    return GetTab(tabBar_->tabData(index).toInt());
}

Tab& TabContainer::GetSelectedTab() const {
    return GetTabByIndex(tabBar_->currentIndex());
}

int TabContainer::indexOf(const Tab& tab) const {
    for (int index = 0; index < tabBar_->count(); ++index)
        if (tabBar_->tabData(index).toInt() == tab.id()) return index;
    return -1;
}

void TabContainer::SelectTab(const Tab& tab) {
    tabBar_->setCurrentIndex(indexOf(tab));
}

void TabContainer::selectNeighbour(int offset) {
    const int count = tabBar_->count();
    if (count > 0) tabBar_->setCurrentIndex((tabBar_->currentIndex() + offset + count) % count);
}

void TabContainer::onCurrentChanged(int index) {
    if (index < 0) return;
    Tab& tab = GetTabByIndex(index);
    if (parts_.active == &tab.shellBrowser()) return;
    parts_.active = &tab.shellBrowser();
    holder_.setCurrentWidget(&tab.shellBrowser().view());
    tab.shellBrowser().view().setFocus();
    TabSelected(tab);
}

void TabContainer::showNameOf(const Tab& tab) {
    const int index = indexOf(tab);
    if (index < 0) return;
    tabBar_->setTabText(index, tab.name().replace(u'&', QStringLiteral("&&")));
    tabBar_->setTabToolTip(index, platform::display(tab.shellBrowser().currentFolder()));
    tabBar_->setTabIcon(index, FileIcons::folder(folderIconName(tab.shellBrowser().currentFolder())));
    // A shorter name makes the strip narrower, which the tab bar does not tell by itself.
    tabBar_->updateGeometry();
}

void TabContainer::setShowHidden(bool shown) {
    parts_.showHidden = shown;
    if (hasTabs()) GetSelectedTab().shellBrowser().navigationController().Refresh();
}

bool TabContainer::eventFilter(QObject* watched, QEvent* event) {
    if (watched == tabBar_ && event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const int index = tabBar_->tabAt(mouse->position().toPoint());
        if (mouse->button() == Qt::MiddleButton && index >= 0) {
            closeTab(GetTabByIndex(index));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace browser
