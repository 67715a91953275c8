#include "app/ColumnsHeader.h"

#include "support/TemporaryFolder.h"

#include <sstream>

namespace {

using app::ColumnState;
using Columns = std::vector<ColumnState>;

Columns catalogue() {
    return {{1, 0, false}, {5, 100, false}, {1, 77, false}, {9, 100, true}, {12, 100, false}};
}

std::string shown(const Columns& columns) {
    std::ostringstream text;
    for (const ColumnState& column : columns)
        text << column.columnType << ':' << column.width << (column.visible ? "+ " : "- ");
    return text.str();
}

struct LoadCase {
    const char* name;
    const char* file;
    const char* loaded;
    const char* loadedFrom;
};

constexpr LoadCase kLoads[] = {
    {"missing section", "", "1:250+ 5:100- 1:77- 9:100+ 12:100- ", "1:250+ 5:100- 1:77- 9:100+ 12:100- "},
    {"two columns", "[SYSTEM]\r\n0=1,300\r\n1=12,90\r\n\r\n", "1:250+ 5:100- 1:77- 9:100+ 12:90+ ",
     "1:250+ 5:100- 1:77- 9:100+ 12:90+ "},
    {"narrow columns", "[SYSTEM]\n0=5,50\n1=12,51\n", "1:250+ 5:150+ 1:77- 9:100+ 12:51+ ",
     "1:250+ 5:50+ 1:77- 9:100+ 12:51+ "},
    {"width 40 and 0", "[SYSTEM]\n0=5,40\n1=12,0\n", "1:250+ 5:150+ 1:77- 9:100+ 12:150+ ",
     "1:250+ 5:40+ 1:77- 9:100+ 12:150+ "},
    {"negative and no width", "[SYSTEM]\n0=5,-3\n1=12,\n", "1:250+ 5:150+ 1:77- 9:100+ 12:150+ ",
     "1:250+ 5:150+ 1:77- 9:100+ 12:150+ "},
    {"gap ends", "[SYSTEM]\n0=5,90\n2=12,90\n", "1:250+ 5:90+ 1:77- 9:100+ 12:100- ",
     "1:250+ 5:90+ 1:77- 9:100+ 12:100- "},
    {"no comma and unknown id", "[SYSTEM]\n0=5\n1=999,90\n2=12,90\n", "1:250+ 5:100- 1:77- 9:100+ 12:90+ ",
     "1:250+ 5:100- 1:77- 9:100+ 12:90+ "},
    {"id 1 is the first only", "[SYSTEM]\n0=1,60\n", "1:250+ 5:100- 1:77- 9:100+ 12:100- ",
     "1:250+ 5:100- 1:77- 9:100+ 12:100- "},
    {"numbers with tails", "[system]\n0= +5x , 90px,7\n", "1:250+ 5:90+ 1:77- 9:100+ 12:100- ",
     "1:250+ 5:90+ 1:77- 9:100+ 12:100- "},
    {"far too large", "[SYSTEM]\n0=5,99999999999999\n", "1:250+ 5:150+ 1:77- 9:100+ 12:100- ",
     "1:250+ 5:150+ 1:77- 9:100+ 12:100- "},
};

TEST(ColumnsHeader, LoadsWhatTheFileLists) {
    const support::TemporaryFolder folder;
    for (const LoadCase& row : kLoads) {
        SCOPED_TRACE(row.name);
        support::writeBytes(folder / "ColumnsHeader.ini", row.file);
        Columns columns = catalogue();
        app::LoadColumns(folder / "ColumnsHeader.ini", columns);
        EXPECT_EQ(shown(columns), row.loaded);
        columns = catalogue();
        app::LoadColumnsFrom(folder / "ColumnsHeader.ini", columns);
        EXPECT_EQ(shown(columns), row.loadedFrom);
    }
}

TEST(ColumnsHeader, AMissingFileStillShowsTheNameColumn) {
    Columns columns = catalogue();
    app::LoadColumns("/nowhere/ColumnsHeader.ini", columns);
    EXPECT_EQ(shown(columns), "1:250+ 5:100- 1:77- 9:100+ 12:100- ");
    app::LoadColumns("/nowhere/ColumnsHeader.ini", {});
}

TEST(ColumnsHeader, SavesTheVisibleColumnsInCatalogueOrder) {
    Columns columns = catalogue();
    std::ostringstream stream;
    app::SaveColumns(stream, columns);
    EXPECT_EQ(stream.str(), "[SYSTEM]\r\n0=1,150\r\n1=9,100\r\n\r\n");
    EXPECT_EQ(shown(columns), "1:150+ 5:100- 1:77- 9:100+ 12:100- ");
}

TEST(ColumnsHeader, SavesTheWidthsThatTheListReports) {
    Columns columns = catalogue();
    std::ostringstream stream;
    app::SaveColumns(stream, columns, [](int running) { return 200 + running; });
    EXPECT_EQ(stream.str(), "[SYSTEM]\r\n0=1,200\r\n1=9,201\r\n\r\n");
}

TEST(ColumnsHeader, WritesAFileThatComesBack) {
    const support::TemporaryFolder folder;
    support::writeBytes(folder / "ColumnsHeader.ini", std::string(5000, 'x'));
    Columns columns = {{1, 333, true}, {5, 120, true}, {9, 60, false}};
    EXPECT_FALSE(app::writeColumnsFile(folder / "ColumnsHeader.ini", columns, {}));
    Columns loaded = {{1, 0, false}, {5, 0, false}, {9, 0, false}};
    app::LoadColumns(folder / "ColumnsHeader.ini", loaded);
    EXPECT_EQ(shown(loaded), "1:250+ 5:120+ 9:0- ");
}

TEST(ColumnsHeader, TellsWhyAFileCannotBeWritten) {
    Columns columns = catalogue();
    EXPECT_EQ(app::writeColumnsFile("/nowhere/ColumnsHeader.ini", columns, {}),
              std::errc::no_such_file_or_directory);
}

struct ColumnMergeCase {
    const char* name;
    const char* file;    ///< what both programs have loaded
    const char* second;  ///< what the other has made of it
    void (*change)(Columns& ours);
    const char* written;
};

const ColumnMergeCase kColumnMerges[] = {
    {"nobody changed a thing", "[SYSTEM]\n0=1,250\n1=9,77\n", "[SYSTEM]\n0=1,250\n1=9,77\n", [](Columns&) {},
     "[SYSTEM]\r\n0=1,250\r\n1=9,77\r\n\r\n"},
    {"a column that the other shows", "[SYSTEM]\n0=1,250\n", "[SYSTEM]\n0=1,250\n1=9,88\n", [](Columns&) {},
     "[SYSTEM]\r\n0=1,250\r\n1=9,88\r\n\r\n"},
    {"a column that the other hides", "[SYSTEM]\n0=1,250\n1=9,77\n", "[SYSTEM]\n0=1,250\n", [](Columns&) {},
     "[SYSTEM]\r\n0=1,250\r\n\r\n"},
    {"a width of ours beside a column of the other's", "[SYSTEM]\n0=1,250\n1=5,90\n",
     "[SYSTEM]\n0=1,250\n1=5,90\n2=9,88\n", [](Columns& ours) { ours[1].width = 200; },
     "[SYSTEM]\r\n0=1,250\r\n1=5,200\r\n2=9,88\r\n\r\n"},
    {"what both changed is ours", "[SYSTEM]\n0=1,250\n1=5,90\n", "[SYSTEM]\n0=1,250\n1=5,300\n",
     [](Columns& ours) { ours[1].visible = false; }, "[SYSTEM]\r\n0=1,250\r\n\r\n"},
    {"a width that was corrected here", "[SYSTEM]\n0=1,250\n1=5,20\n", "[SYSTEM]\n0=1,250\n1=5,60\n",
     [](Columns&) {}, "[SYSTEM]\r\n0=1,250\r\n1=5,60\r\n\r\n"},
};

TEST(ColumnsHeader, WhatAnotherProgramChangedIsNotUndone) {
    const support::TemporaryFolder folder;
    const auto file = folder / "ColumnsHeader.ini";
    for (const ColumnMergeCase& row : kColumnMerges) {
        support::writeBytes(file, row.file);
        Columns ours = {{1, 0, false}, {5, 100, false}, {9, 100, false}};
        const app::LoadedColumns loaded = app::LoadColumns(file, ours);
        support::writeBytes(file, row.second);
        row.change(ours);
        EXPECT_FALSE(app::writeColumnsFile(file, ours, loaded)) << row.name;
        EXPECT_EQ(support::readBytes(file), row.written) << row.name;
    }
}

TEST(ColumnsHeader, AFileThatCannotBeReadIsNotReplaced) {
    const support::TemporaryFolder folder;
    const auto file = folder / "ColumnsHeader.ini";
    const std::string far = "[SYSTEM]\r\n0=1,300\r\n" + std::string(4 << 20, ';');
    support::writeBytes(file, far);
    std::vector<app::ColumnState> columns{{1, 250, true}};
    const app::LoadedColumns loaded = app::LoadColumns(file, columns);
    EXPECT_TRUE(app::writeColumnsFile(file, columns, loaded));
    EXPECT_EQ(support::readBytes(file), far);
}

TEST(ColumnsHeader, AFileThatWasDeletedMeanwhileIsMadeAgain) {
    const support::TemporaryFolder folder;
    const auto file = folder / "ColumnsHeader.ini";
    support::writeBytes(file, "[SYSTEM]\n0=1,250\n1=5,90\n");
    Columns ours = {{1, 0, false}, {5, 100, false}};
    const app::LoadedColumns loaded = app::LoadColumns(file, ours);
    std::filesystem::remove(file);
    EXPECT_FALSE(app::writeColumnsFile(file, ours, loaded));
    EXPECT_EQ(support::readBytes(file), "[SYSTEM]\r\n0=1,250\r\n1=5,90\r\n\r\n");
}

}  // namespace
