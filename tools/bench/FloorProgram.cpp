// Lists and sorts the FOLDER given in plain C++, in a process as fresh as the one it is compared with.

#include "FolderFloor.h"
#include "PlainProcess.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const double begin = bench::monotonicSeconds();
    const std::vector<bench::FloorEntry> entries = bench::readAndSortPlainly(argv[1]);
    bench::printMeasurement("seconds", bench::monotonicSeconds() - begin);
    bench::printMeasurement("items", static_cast<double>(entries.size()));
    return 0;
}
