#include "browser/FileInView.h"

namespace browser {

namespace {

bool isSelectedFile(const ItemList& list, int row) {
    return row >= 0 && row < list.rowCount() && list.itemAt(row).selected && !list.itemAt(row).isFolder();
}

int rowOfPath(const ItemList& list, const std::filesystem::path& path) {
    if (path.empty() || path.parent_path() != list.folder()) return -1;
    return list.rowOf(list.findItem(path.filename().native()));
}

}  // namespace

FileInView fileInView(const ItemList& list, int currentRow, const std::filesystem::path& shown) {
    FileInView view;
    if (list.totals().selectedFiles == 0) return view;
    view.row = isSelectedFile(list, currentRow) ? currentRow : rowOfPath(list, shown);
    if (!isSelectedFile(list, view.row)) view.row = -1;
    for (int row = 0; row < list.rowCount(); ++row) {
        if (!isSelectedFile(list, row)) continue;
        ++view.count;
        if (view.row < 0) view.row = row;
        if (row == view.row) view.number = view.count;
    }
    return view;
}

bool isSelectedFile(const ItemList& list, const std::filesystem::path& path) {
    return list.totals().selectedFiles > 0 && isSelectedFile(list, rowOfPath(list, path));
}

}  // namespace browser
