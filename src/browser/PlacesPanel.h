#pragma once

#include "app/LanguageFile.h"
#include "browser/Places.h"

#include <QTreeWidget>
#include <boost/signals2.hpp>

namespace browser {

/// The places of the left pane: the known folders, then the volumes. A click tells the folder; the place of
/// the folder on show is marked. GUI thread.
class PlacesPanel : public QTreeWidget {
    Q_OBJECT

 public:
    /// language must outlive the panel.
    explicit PlacesPanel(const app::LanguageFile& language, QWidget* parent = nullptr);

    /// Marks the place that is this folder or the nearest above it.
    void setCurrentFolder(const std::filesystem::path& folder);
    /// Looks for the folders and volumes anew.
    void reload();

    boost::signals2::signal<void(const std::filesystem::path&)> PlaceActivated;
    /// The context menu of a place is asked for; at a global position.
    boost::signals2::signal<void(const std::filesystem::path&, const QPoint&)> PlaceMenuRequested;

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void softenSelection();
    void addSection(int titleNumber, const std::vector<Place>& places);
    void reloadVolumesIfChanged();

    const app::LanguageFile& language_;
    std::filesystem::path currentFolder_;
    std::vector<std::filesystem::path> volumes_;
};

}  // namespace browser
