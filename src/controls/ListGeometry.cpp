#include "controls/ListGeometry.h"

#include <algorithm>

namespace controls {

void ListGeometry::orderFlat(int rowCount) {
    grouped_ = false;
    rowOfPosition_ = {};
    positionOfRow_ = {};
    sectionOfGroup_.clear();
    positionCount_ = rowCount;
    sections_.clear();
    if (rowCount > 0) sections_.push_back({.count = rowCount});
}

void ListGeometry::orderByGroup(const std::vector<int>& groupOfRow, int groupCount) {
    grouped_ = true;
    std::vector<int> next(static_cast<size_t>(groupCount), 0);
    for (const int group : groupOfRow)
        if (group >= 0) ++next[static_cast<size_t>(group)];

    sections_.clear();
    sectionOfGroup_.assign(static_cast<size_t>(groupCount), -1);
    positionCount_ = 0;
    for (int group = 0; group < groupCount; ++group) {
        int& count = next[static_cast<size_t>(group)];
        if (count > 0) {
            sectionOfGroup_[static_cast<size_t>(group)] = static_cast<int>(sections_.size());
            sections_.push_back({.group = group, .firstPosition = positionCount_, .count = count});
        }
        const int first = positionCount_;
        positionCount_ += count;
        count = first;
    }

    rowOfPosition_.resize(static_cast<size_t>(positionCount_));
    positionOfRow_.resize(groupOfRow.size());
    for (size_t row = 0; row < groupOfRow.size(); ++row) {
        const int group = groupOfRow[row];
        const int position = group < 0 ? -1 : next[static_cast<size_t>(group)]++;
        positionOfRow_[row] = position;
        if (position >= 0) rowOfPosition_[static_cast<size_t>(position)] = static_cast<int>(row);
    }
}

int ListGeometry::lineCount(const Section& section) const {
    return (section.count + metrics_.perLine - 1) / metrics_.perLine;
}

void ListGeometry::arrange(const Metrics& metrics, const std::vector<bool>& collapsed) {
    metrics_ = metrics;
    int top = 0;
    for (Section& section : sections_) {
        section.collapsed = section.group >= 0 && collapsed[static_cast<size_t>(section.group)];
        section.top = top;
        section.bodyTop = top + (section.group >= 0 ? metrics_.groupHeaderHeight : 0);
        section.bottom = section.bodyTop;
        if (!section.collapsed) {
            section.bottom += lineCount(section) * metrics_.cell.height();
            if (section.group >= 0) section.bottom += metrics_.groupSpacing;
        }
        top = section.bottom;
    }
    height_ = top;
}

int ListGeometry::rowAt(int position) const {
    if (position < 0 || position >= positionCount_) return -1;
    return grouped_ ? rowOfPosition_[static_cast<size_t>(position)] : position;
}

int ListGeometry::positionOf(int row) const {
    if (row < 0) return -1;
    if (!grouped_) return row < positionCount_ ? row : -1;
    return static_cast<size_t>(row) < positionOfRow_.size() ? positionOfRow_[static_cast<size_t>(row)] : -1;
}

const ListGeometry::Section* ListGeometry::sectionOfGroup(int group) const {
    if (group < 0 || static_cast<size_t>(group) >= sectionOfGroup_.size()) return nullptr;
    const int section = sectionOfGroup_[static_cast<size_t>(group)];
    return section < 0 ? nullptr : &sections_[static_cast<size_t>(section)];
}

int ListGeometry::sectionIndexOfPosition(int position) const {
    if (position < 0 || position >= positionCount_) return -1;
    const auto after = std::ranges::upper_bound(sections_, position, {}, &Section::firstPosition);
    return static_cast<int>(after - sections_.begin()) - 1;
}

const ListGeometry::Section* ListGeometry::sectionOfPosition(int position) const {
    const int section = sectionIndexOfPosition(position);
    return section < 0 ? nullptr : &sections_[static_cast<size_t>(section)];
}

int ListGeometry::sectionIndexAt(int y) const {
    if (y < 0 || y >= height_) return -1;
    const auto after = std::ranges::upper_bound(sections_, y, {}, &Section::top);
    return static_cast<int>(after - sections_.begin()) - 1;
}

QRect ListGeometry::headerRect(const Section& section) const {
    return {0, section.top, metrics_.width, section.bodyTop - section.top};
}

QRect ListGeometry::rectOf(int position) const {
    const Section* section = sectionOfPosition(position);
    if (section == nullptr || section->collapsed) return {};
    const int inside = position - section->firstPosition;
    const QPoint corner(inside % metrics_.perLine * metrics_.cell.width(),
                        section->bodyTop + inside / metrics_.perLine * metrics_.cell.height());
    return {corner, metrics_.cell};
}

int ListGeometry::positionAt(QPoint point) const {
    const int index = sectionIndexAt(point.y());
    if (index < 0 || point.x() < 0) return -1;
    const Section& section = sections_[static_cast<size_t>(index)];
    if (section.collapsed || point.y() < section.bodyTop) return -1;
    const int column = point.x() / metrics_.cell.width();
    if (column >= metrics_.perLine) return -1;
    const int line = (point.y() - section.bodyTop) / metrics_.cell.height();
    const int inside = line * metrics_.perLine + column;
    return inside < section.count ? section.firstPosition + inside : -1;
}

const ListGeometry::Section* ListGeometry::headerAt(QPoint point) const {
    const int index = sectionIndexAt(point.y());
    if (index < 0) return nullptr;
    const Section& section = sections_[static_cast<size_t>(index)];
    return headerRect(section).contains(point) ? &section : nullptr;
}

ListGeometry::Span ListGeometry::sectionsBetween(int top, int bottom) const {
    top = std::max(top, 0);
    bottom = std::min(bottom, height_ - 1);
    if (top > bottom) return {};
    return {sectionIndexAt(top), sectionIndexAt(bottom)};
}

std::vector<ListGeometry::Span> ListGeometry::spansBetween(int top, int bottom) const {
    std::vector<Span> spans;
    const Span range = sectionsBetween(top, bottom);
    for (int index = range.first; index <= range.last; ++index) {
        const Section& section = sections_[static_cast<size_t>(index)];
        if (section.collapsed || bottom < section.bodyTop) continue;
        const int firstLine = std::max(top - section.bodyTop, 0) / metrics_.cell.height();
        const int lastLine = (bottom - section.bodyTop) / metrics_.cell.height();
        const int first = firstLine * metrics_.perLine;
        // Lines in long lists times cells a line stay far below the limit of int only when cut first.
        const int last = std::min(lastLine, lineCount(section)) * metrics_.perLine + metrics_.perLine - 1;
        if (first >= section.count) continue;
        spans.push_back(
            {section.firstPosition + first, section.firstPosition + std::min(last, section.count - 1)});
    }
    return spans;
}

bool ListGeometry::isShown(int position) const {
    const Section* section = sectionOfPosition(position);
    return section != nullptr && !section->collapsed;
}

int ListGeometry::nextShown(int position) const {
    const int next = position + 1;
    for (size_t index = static_cast<size_t>(std::max(sectionIndexOfPosition(next), 0));
         next < positionCount_ && index < sections_.size(); ++index) {
        const Section& section = sections_[index];
        if (!section.collapsed) return std::max(next, section.firstPosition);
    }
    return -1;
}

int ListGeometry::previousShown(int position) const {
    const int previous = std::min(position, positionCount_) - 1;
    for (int index = sectionIndexOfPosition(previous); index >= 0; --index) {
        const Section& section = sections_[static_cast<size_t>(index)];
        if (!section.collapsed) return std::min(previous, section.firstPosition + section.count - 1);
    }
    return -1;
}

int ListGeometry::nextLine(int position) const {
    const Section* section = sectionOfPosition(position);
    if (section == nullptr || section->collapsed) return nextShown(position);
    const int inside = position - section->firstPosition;
    const int column = inside % metrics_.perLine;
    if (inside / metrics_.perLine + 1 < lineCount(*section))
        return section->firstPosition + std::min(inside + metrics_.perLine, section->count - 1);
    const int first = nextShown(section->firstPosition + section->count - 1);
    if (first < 0) return -1;
    const Section& next = *sectionOfPosition(first);
    return first + std::min(column, next.count - 1);
}

int ListGeometry::previousLine(int position) const {
    const Section* section = sectionOfPosition(position);
    if (section == nullptr || section->collapsed) return previousShown(position);
    const int inside = position - section->firstPosition;
    if (inside >= metrics_.perLine) return position - metrics_.perLine;
    const int last = previousShown(section->firstPosition);
    if (last < 0) return -1;
    const Section& previous = *sectionOfPosition(last);
    const int lastLine = (lineCount(previous) - 1) * metrics_.perLine;
    return previous.firstPosition + std::min(lastLine + inside, previous.count - 1);
}

int ListGeometry::nearestShown(QPoint point) const {
    if (sections_.empty()) return -1;
    const int y = std::clamp(point.y(), 0, std::max(height_ - 1, 0));
    const Section& section = sections_[static_cast<size_t>(std::max(sectionIndexAt(y), 0))];
    if (section.collapsed) {
        const int next = nextShown(section.firstPosition);
        return next >= 0 ? next : previousShown(section.firstPosition);
    }
    const int line =
        std::min(std::max(y - section.bodyTop, 0) / metrics_.cell.height(), lineCount(section) - 1);
    const int column = std::clamp(point.x() / metrics_.cell.width(), 0, metrics_.perLine - 1);
    return section.firstPosition + std::min(line * metrics_.perLine + column, section.count - 1);
}

}  // namespace controls
