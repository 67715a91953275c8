#pragma once

#include "browser/Tab.h"

#include <QWidget>
#include <map>

class QStackedWidget;
class QTabBar;

namespace browser {

/// The strip of tabs above the list, and the owner of the tabs. Their lists stand in a holder of the
/// caller's, where only the selected one shows. What happens in a tab is told upward by signals that carry
/// it. The last tab cannot be closed. GUI thread.
class TabContainer : public QWidget {
    Q_OBJECT

 public:
    using TabSignal = boost::signals2::signal<void(const Tab&)>;

    /// All but parent must outlive the container.
    TabContainer(app::AppContext& context, tags::PropertyCatalogue& catalogue,
                 const app::LanguageFile& language, QStackedWidget& holder, QWidget* parent = nullptr);
    ~TabContainer() override;

    /// A tab on that folder. Null, and no tab, when there is no such folder.
    Tab* CreateNewTab(const std::filesystem::path& folder, const TabSettings& settings = {});
    /// A tab on the selected tab's folder, taken at once.
    Tab* duplicateSelectedTab();
    /// False for the last tab, which stays.
    bool closeTab(const Tab& tab);

    /// There is none before the first CreateNewTab().
    bool hasTabs() const { return !tabs_.empty(); }
    /// Throws std::out_of_range for an unknown id.
    Tab& GetTab(int tabId) const { return *tabs_.at(tabId); }
    Tab& GetTabByIndex(int index) const;
    Tab& GetSelectedTab() const;
    int indexOf(const Tab& tab) const;
    int tabCount() const { return static_cast<int>(tabs_.size()); }
    void SelectTab(const Tab& tab);
    /// The tab to the right (+1) or left (-1), round about.
    void selectNeighbour(int offset);
    QTabBar& tabBar() { return *tabBar_; }

    /// Hidden files are listed or not, in all tabs; the selected one is read again.
    void setShowHidden(bool shown);
    bool showHidden() const { return parts_.showHidden; }

    boost::signals2::signal<void(int, bool)> TabCreated;  ///< id, whether it was taken
    TabSignal TabSelected;
    boost::signals2::signal<void(const Tab&, const std::filesystem::path&)> TabNavigationStarted;
    TabSignal TabNavigationCompleted;
    TabSignal TabListSelectionChanged;
    TabSignal TabColumnsChanged;
    boost::signals2::signal<void(int)> TabRemoved;
    /// The context menu of a tab is asked for, by its place; at a global position.
    boost::signals2::signal<void(int index, const QPoint&)> TabMenuRequested;

    // What the lists tell, with the tab that it happened in; see ShellBrowser.
    TabSignal MetadataOutdated;
    boost::signals2::signal<void(const Tab&, const std::filesystem::path&, std::int32_t itemId)> FileClicked;
    boost::signals2::signal<void(const Tab&, const std::filesystem::path&)> FileActivated;
    boost::signals2::signal<void(const Tab&, const QString& size)> FolderSizeCounted;
    boost::signals2::signal<void(const Tab&, int row, const QPoint&)> MenuRequested;
    boost::signals2::signal<void(const Tab&, const QPoint&)> HeaderMenuRequested;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool SetUpNewTab(Tab& tab, const std::filesystem::path& folder, const TabSettings& settings);
    void connectTab(Tab& tab);
    void onCurrentChanged(int index);
    void showNameOf(const Tab& tab);

    BrowserParts parts_;
    FileIcons icons_;
    QStackedWidget& holder_;
    QTabBar* tabBar_;
    int nextTabId_ = 0;
    std::map<int, std::unique_ptr<Tab>> tabs_;
};

}  // namespace browser
