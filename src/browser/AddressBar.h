#pragma once

#include "app/LanguageFile.h"
#include "browser/TaskQueue.h"

#include <QWidget>
#include <boost/signals2.hpp>
#include <filesystem>
#include <vector>

class QAction;
class QCompleter;
class QLineEdit;
class QStringListModel;
class QToolButton;

namespace browser {

class HistoryEntry;
class Tab;
class TabContainer;

/// One line with back, forward, up and the selected tab's folder, where a path can be typed; folder names are
/// offered while typing. A path that cannot be opened leaves the text as it is and is told by a signal. GUI
/// thread; the folder names are read on a thread of its own.
class AddressBar : public QWidget {
    Q_OBJECT

 public:
    /// tabs and language must outlive the bar.
    AddressBar(TabContainer& tabs, const app::LanguageFile& language, QWidget* parent = nullptr);
    ~AddressBar() override;

    /// Puts the focus into the path and selects it.
    void editPath();
    QString text() const;
    QLineEdit& edit() { return *edit_; }

    /// A sentence for the status bar.
    boost::signals2::signal<void(const QString&)> StatusMessage;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QToolButton* addButton(const QString& name, const QString& icon, int tipNumber);
    void makeEdit();
    void connectTabs();
    void OnGo();
    void showTab(const Tab& tab);
    void showHistory(const Tab& tab);
    void showIcon(const HistoryEntry* entry);
    void restore();
    void offerFolders(const QString& text);
    void dropOffers();
    void takeFolders(int request, const std::filesystem::path& parent, const QStringList& names);

    TabContainer& tabs_;
    const app::LanguageFile& language_;
    QToolButton* back_;
    QToolButton* forward_;
    QToolButton* up_;
    QLineEdit* edit_ = nullptr;
    QAction* icon_ = nullptr;
    QCompleter* completer_ = nullptr;
    QStringListModel* offers_ = nullptr;
    std::filesystem::path offeredFolder_;
    int lastRequest_ = 0;
    boost::signals2::scoped_connection entryConnection_;
    std::vector<boost::signals2::scoped_connection> connections_;
    TaskQueue folderQueue_;  // last: its thread ends first
};

}  // namespace browser
