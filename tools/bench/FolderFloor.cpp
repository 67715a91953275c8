#include "FolderFloor.h"

#include <cctype>
#include <cstdio>
#include <fstream>

namespace bench {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

int folded(char c) {
    return std::tolower(static_cast<unsigned char>(c));
}

}  // namespace

bool plainNaturalLess(const std::string& left, const std::string& right) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() && j < right.size()) {
        if (isDigit(left[i]) && isDigit(right[j])) {
            while (i < left.size() && left[i] == '0') ++i;
            while (j < right.size() && right[j] == '0') ++j;
            std::size_t leftEnd = i;
            std::size_t rightEnd = j;
            while (leftEnd < left.size() && isDigit(left[leftEnd])) ++leftEnd;
            while (rightEnd < right.size() && isDigit(right[rightEnd])) ++rightEnd;
            if (leftEnd - i != rightEnd - j) return leftEnd - i < rightEnd - j;
            for (; i < leftEnd; ++i, ++j)
                if (left[i] != right[j]) return left[i] < right[j];
            continue;
        }
        if (folded(left[i]) != folded(right[j])) return folded(left[i]) < folded(right[j]);
        ++i;
        ++j;
    }
    return left.size() - i < right.size() - j;
}

void makeManyFiles(const std::filesystem::path& folder, int count) {
    static constexpr const char* kPatterns[] = {"IMG_%d.JPG", "DSC%05d.NEF", "Holiday %d (copy).jpg",
                                                "clip-%d.mp4", "P%07d.orf"};
    constexpr int kPatternCount = static_cast<int>(std::size(kPatterns));
    for (int i = 0; i < count; ++i) {
        char name[64];
        std::snprintf(name, sizeof name, kPatterns[i % kPatternCount], i);
        std::ofstream file(folder / name);
    }
}

}  // namespace bench
