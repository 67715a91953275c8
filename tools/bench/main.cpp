// Measures what the program promises about speed, and prints it as ratios and differences taken in one run.

#include "Figures.h"
#include "SampleFiles.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using bench::Comparison;
using bench::Goal;

struct Part {
    const char* name;
    int rounds;
};

constexpr Part kParts[] = {{"Parsing", 5}, {"Folder", 7}, {"Click", 9}, {"Start", 11},
                           {"Edit", 3},    {"Picker", 7}, {"Batch", 5}, {"Writing", 5}};

constexpr bench::Figure kFigures[] = {
    {"Parsing with all families shown", "Parsing/AllFamilies", "lines", Comparison::Ratio,
     "Parsing/AllFamilies", "seconds", 1, "lines/s", Goal::AtLeast, 400000},
    {"Parsing with the built-in settings", "Parsing/Defaults", "lines", Comparison::Ratio, "Parsing/Defaults",
     "seconds", 1, "lines/s", Goal::AtLeast, 400000},
    {"Parsing : only reading the lines", "Parsing/AllFamilies", "seconds", Comparison::Ratio,
     "Parsing/PlainLines", "seconds", 1, "", Goal::None, 0},
    {"Finding a tag by scan : by index", "Parsing/FindByScan", "seconds", Comparison::Ratio,
     "Parsing/FindByIndex", "seconds", 1, "", Goal::None, 0},
    {"Copying the dictionary at the start", "Parsing/CopyOfDictionary", "seconds", Comparison::None, "", "",
     1000, "ms", Goal::AtMost, 10},
    {"Making a library of labels and its first label", "Parsing/FirstLabel", "seconds", Comparison::None, "",
     "", 1000, "ms", Goal::AtMost, 20},
    {"100,000 files until painted : listed and sorted plainly", "Folder/Window100000", "seconds",
     Comparison::Ratio, "Folder/Plain100000", "seconds", 1, "", Goal::AtMost, 1.6},
    {"  longest block of the window : listed and sorted plainly", "Folder/Window100000", "block",
     Comparison::Ratio, "Folder/Plain100000", "seconds", 1, "", Goal::AtMost, 1.6},
    {"  memory for an item, beyond the window with an empty folder", "Folder/Window100000", "memory",
     Comparison::Difference, "Folder/WindowEmpty", "memory", 1.0 / 100000, "bytes", Goal::AtMost, 700},
    {"  longest jump while scrolling through 100,000 files", "Folder/Window100000", "scroll",
     Comparison::None, "", "", 1000, "ms", Goal::None, 0},
    {"Sorting 100,000 files anew, the slowest of four orders", "Folder/Window100000", "sort",
     Comparison::None, "", "", 1000, "ms", Goal::None, 0},
    {"  longest block of the window meanwhile", "Folder/Window100000", "sortBlock", Comparison::None, "", "",
     1000, "ms", Goal::AtMost, 50},
    {"10,000 files until painted", "Folder/Window10000", "seconds", Comparison::None, "", "", 1000, "ms",
     Goal::AtMost, 100},
    {"Click until painted, beyond ExifTool's own run", "Click/Window", "added", Comparison::None, "", "",
     1000, "ms", Goal::AtMost, 15},
    {"  the same for the file with the most tags", "Click/Window", "addedToLargest", Comparison::None, "", "",
     1000, "ms", Goal::AtMost, 15},
    {"  the same for the first click of all", "Click/Window", "addedAtFirst", Comparison::None, "", "", 1000,
     "ms", Goal::None, 0},
    {"Click until painted : ExifTool's own run", "Click/Window", "seconds", Comparison::Ratio, "Click/Window",
     "tool", 1, "", Goal::None, 0},
    {"Start until painted, beyond an empty window", "Start/Program", "seconds", Comparison::Difference,
     "Start/EmptyWindow", "seconds", 1000, "ms", Goal::AtMost, 300},
    {"Edit of a tag until painted, beyond ExifTool's own run", "Edit/Warm", "added", Comparison::None, "", "",
     1000, "ms", Goal::AtMost, 20},
    {"  the same without the warm starter", "Edit/Cold", "added", Comparison::None, "", "", 1000, "ms",
     Goal::AtMost, 20},
    {"  of a photo of 50 MB, safety copy cloned", "Edit/LargeCloned", "added", Comparison::None, "", "", 1000,
     "ms", Goal::AtMost, 20},
    {"  of a photo of 50 MB, safety copy written (no clones here)", "Edit/LargeCopied", "added",
     Comparison::None, "", "", 1000, "ms", Goal::None, 0},
    {"  the same, without the time of that copy", "Edit/LargeCopied", "addedBesideCopy", Comparison::None, "",
     "", 1000, "ms", Goal::AtMost, 20},
    {"List of all XMP tags (960) until painted", "Picker/Xmp", "seconds", Comparison::None, "", "", 1000,
     "ms", Goal::AtMost, 100},
    {"  the same for the first time", "Picker/Xmp", "first", Comparison::None, "", "", 1000, "ms",
     Goal::AtMost, 100},
    {"List of 2,700 tags until painted", "Picker/Xmp", "longest", Comparison::None, "", "", 1000, "ms",
     Goal::AtMost, 100},
    {"500 photos of 200 KB with safety copies : ExifTool's plain run", "Batch/Sessions", "pace",
     Comparison::Ratio, "Batch/Plain", "pace", 1, "times", Goal::AtLeast, 1.3},
    {"  two plain runs at once, half of the files each : one", "Batch/TwoPlain", "pace", Comparison::Ratio,
     "Batch/Plain", "pace", 1, "times", Goal::None, 0},
    {"The same with described photos : ExifTool's plain run", "Batch/DescribedSessions", "pace",
     Comparison::Ratio, "Batch/DescribedPlain", "pace", 1, "times", Goal::AtLeast, 1.3},
    {"  two plain runs at once, half of the files each : one", "Batch/DescribedTwoPlain", "pace",
     Comparison::Ratio, "Batch/DescribedPlain", "pace", 1, "times", Goal::None, 0},
    {"Longest block of the window while 1,000 photos are written", "Writing/Window", "block",
     Comparison::None, "", "", 1000, "ms", Goal::AtMost, 50},
};

int usage() {
    std::fputs(
        "usage: tagwright-bench [--part Parsing|Folder|Click|Start|Edit|Picker|Batch|Writing] "
        "[FOLDER_OF_SAMPLES]\n",
        stderr);
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    // What is measured must not depend on the desktop that happens to be there.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    std::string_view wantedPart;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "--part" && i + 1 < argc)
            wantedPart = argv[++i];
        else if (word.starts_with('-'))
            return usage();
        else
            bench::setSampleFolder(word);
    }
    bench::Rounds rounds;
    bool succeeded = true;
    try {
        for (const Part& part : kParts)
            if (wantedPart.empty() || wantedPart == part.name)
                succeeded = rounds.run(part.name, part.rounds) && succeeded;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "\n%s\n", failure.what());
        return 1;
    }
    rounds.printMedians();
    return bench::printFigures(kFigures, rounds) && succeeded ? 0 : 1;
}
