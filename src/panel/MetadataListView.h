#pragma once

#include "app/Settings.h"
#include "controls/GroupedListView.h"

#include <QColor>

namespace panel {

/// The panel's list: its group headers are drawn whole, gradient, picture and title.
class MetadataListView : public controls::GroupedListView {
    Q_OBJECT

 public:
    struct HeaderColours {
        QColor high;
        QColor low;
        QColor text;
        QColor count;
    };
    /// The colours of a group's header as they are painted on a list of that ground.
    static HeaderColours headerColours(const app::Settings::Colors& settings, const QColor& ground);

    explicit MetadataListView(const app::Settings& settings, QWidget* parent = nullptr);

 protected:
    void paintGroupHeader(QPainter& painter, const QRect& rect, const Group& group, bool collapsed,
                          bool hovered) const override;
    QRect groupChevronRect(const QRect& headerRect) const override;

 private:
    const app::Settings& settings_;
};

}  // namespace panel
