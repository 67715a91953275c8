#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <vector>

namespace controls {

/// Where the rows and group headers of a GroupedListView stand: plain arithmetic, no widget. Points and
/// rectangles are in content coordinates: pixels from the top left corner of the whole, unscrolled content.
///
/// A row has a position: its place from top to bottom. Without groups the position is the row and nothing is
/// kept per row; with groups two integers per row are kept.
class ListGeometry {
 public:
    /// A run of positions under one group header, or all of them when there are no groups.
    struct Section {
        int group = -1;  ///< index of the group, -1 without groups
        int firstPosition = 0;
        int count = 0;
        bool collapsed = false;
        int top = 0;      ///< of the header
        int bodyTop = 0;  ///< of the first line
        int bottom = 0;   ///< first pixel below the section
    };

    /// A run of positions, both ends inside.
    struct Span {
        int first = 0;
        int last = -1;
    };

    /// The sizes that the layout is made of. Cells stand in lines of `perLine`.
    struct Metrics {
        QSize cell;
        int perLine = 1;
        int groupHeaderHeight = 0;
        int groupSpacing = 0;  ///< free pixels below each open group
        int width = 0;         ///< of the group headers
    };

    /// All rows, in the model's order, without headers.
    void orderFlat(int rowCount);
    /// groupOfRow: for each row the index of its group, or a negative number for a row that is shown nowhere.
    /// Costs time in proportion to the rows.
    void orderByGroup(const std::vector<int>& groupOfRow, int groupCount);
    /// Lays the ordered rows out; collapsed has an entry for each group. Costs time in proportion to the
    /// groups.
    void arrange(const Metrics& metrics, const std::vector<bool>& collapsed);

    const Metrics& metrics() const { return metrics_; }
    const std::vector<Section>& sections() const { return sections_; }
    int height() const { return height_; }

    /// Positions in use: 0 up to this.
    int positionCount() const { return positionCount_; }
    int rowAt(int position) const;
    /// -1 for a row that is shown nowhere.
    int positionOf(int row) const;
    /// nullptr when the group has no rows.
    const Section* sectionOfGroup(int group) const;
    const Section* sectionOfPosition(int position) const;

    QRect headerRect(const Section& section) const;
    /// The cell's whole rectangle; empty when its group is collapsed or the position does not exist.
    QRect rectOf(int position) const;
    /// -1 when no cell is there.
    int positionAt(QPoint point) const;
    /// The section whose header is there, or nullptr.
    const Section* headerAt(QPoint point) const;
    /// The positions of which anything lies inside, from top to bottom. Lines are taken whole.
    std::vector<Span> spansBetween(int top, int bottom) const;
    /// The sections of which anything lies inside.
    Span sectionsBetween(int top, int bottom) const;

    bool isShown(int position) const;
    /// The next position in an open group, `position` itself not counted; -1 at the end.
    int nextShown(int position) const;
    int previousShown(int position) const;
    /// One line down or up at the same place in the line, over group borders; -1 at the end.
    int nextLine(int position) const;
    int previousLine(int position) const;
    /// The shown position closest to the point, -1 when there is none.
    int nearestShown(QPoint point) const;

 private:
    int sectionIndexAt(int y) const;
    int sectionIndexOfPosition(int position) const;
    int lineCount(const Section& section) const;

    Metrics metrics_;
    std::vector<Section> sections_;
    std::vector<int> sectionOfGroup_;
    std::vector<int> rowOfPosition_;  // empty without groups
    std::vector<int> positionOfRow_;  // empty without groups
    int positionCount_ = 0;
    int height_ = 0;
    bool grouped_ = false;
};

}  // namespace controls
