#include "taglists/AddTagsGroups.h"

#include <algorithm>
#include <array>

namespace taglists {

namespace {

// The texts stand in front of tags in commands; their case, and the misspelled depth map, are kept.
// clang-format off
constexpr auto kGroups = std::to_array<AddTagsGroup>({
    {24,  "IFD1", 1414},
    {25,  "IFD2", 1415},
    {26,  "InteropIFD", 1419},
    {27,  "SubIFD", 1416},
    {28,  "SubIFD1", 1417},
    {29,  "SubIFD2", 1716},
    {30,  "ExifIFD", 1418},
    {32,  "IPTC", 1422},
    {33,  "IPTC", 1421},
    {34,  "IPTC", 1423},
    {36,  "XMP", 1487},
    {57,  "XMP-aas", 1425},
    {58,  "XMP-acdsee", 1426},
    {59,  "XMP-album", 1427},
    {60,  "XMP-AnalogExif", 2003},
    {61,  "XMP-APDI", 2004},
    {62,  "XMP-AppleFI", 1428},
    {63,  "XMP-art", 1472},
    {64,  "XMP-attr", 1351},
    {65,  "XMP-aux", 1429},
    {66,  "XMP-xmpBJ", 1474},
    {67,  "XMP-Camera", 1671},
    {68,  "XMP-Camera_1_", 1670},
    {69,  "XMP-Cc", 1430},
    {70,  "XMP-Cell", 1431},
    {71,  "XMP-Claro", 1432},
    {72,  "XMP-Crd", 1433},
    {73,  "XMP-CreatorAtom", 1434},
    {74,  "XMP-crs", 1435},
    {75,  "XMP-dc", 1436},
    {76,  "XMP-DepthBlueEffect", 1153},
    {77,  "XMP-DepthData", 1152},
    {78,  "XMP-Dex", 1437},
    {79,  "XMP-Dicom", 1438},
    {80,  "XMP-Digikam", 1439},
    {81,  "XMP-Drone-Dji", 1672},
    {82,  "XMP-Drone-Parrot", 1669},
    {83,  "XMP-Dwc", 1668},
    {84,  "XMP-exif", 1444},
    {85,  "XMP-exifEX", 1445},
    {86,  "XMP-expressionmedia", 1446},
    {87,  "XMP-extensis", 1447},
    {88,  "XMP-fpv", 1448},
    {89,  "XMP-GAudio", 1449},
    {90,  "XMP-GCamera", 1450},
    {91,  "XMP-GCreations", 1451},
    {92,  "XMP-GDepth", 1452},
    {93,  "XMP-Getty", 1453},
    {94,  "XMP-GFocus", 1454},
    {95,  "XMP-GImage", 1455},
    {96,  "XMP-Gml", 1151},
    {97,  "XMP-GPano", 1456},
    {98,  "XMP-GSpherical", 1457},
    {99,  "XMP-ics", 1458},
    {100, "XMP-idpriv", 996},
    {101, "XMP-illustrator", 1124},
    {102, "XMP-iptcCore", 1459},
    {103, "XMP-iptcExt", 1460},
    {104, "XMP-leaf", 2016},
    {105, "XMP-lfaschema", 1473},
    {106, "XMP-lightroom", 1462},
    {108, "XMP-mets", 1686},
    {109, "XMP-mediapro", 1463},
    {110, "XMP-microsoft", 1478},
    {111, "XMP-mp1", 1479},
    {112, "XMP-Mp", 1476},
    {113, "XMP-mwg-rs", 1808},
    {114, "XMP-opmedia", 1475},
    {115, "XMP-pdf", 1464},
    {116, "XMP-pdfx", 1477},
    {117, "XMP-photomech", 1480},
    {118, "XMP-photoshop", 1465},
    {119, "XMP-pixellive", 1466},
    {120, "XMP-plus", 1648},
    {121, "XMP-pmtm-1", 1807},
    {122, "XMP-prism", 1664},
    {123, "XMP-rdf", 1468},
    {124, "XMP-silverfast", 1719},
    {125, "XMP-subversion", 1663},
    {126, "XMP-swf", 1469},
    {127, "XMP-tiff", 1470},
    {129, "XMP-vrae", 1929},
    {130, "XMP-webdam", 1517},
    {131, "XMP-x", 1486},
    {132, "XMP-xmp", 1487},
    {133, "XMP-xmpDM", 1711},
    {134, "XMP-xmpNote", 1100},
    {135, "XMP-xmpMM", 1647},
    {136, "XMP-xmpRights", 1096},
    {137, "XMP-xmpTpg", 1101},
    {138, "XMP-xmpXs", 1811},
    {139, "XMP-xmpXsd", 1812},
    {140, "XMP-xmpXsi", 1685},
    {141, "XMP-xmpXsl", 1813},
    {142, "GPS", 1076},
});
// clang-format on

constexpr AddTagsGroup kOtherwise{0, "IFD0", 1413};

static_assert(kGroups.size() == 95);
static_assert(std::ranges::is_sorted(kGroups, {}, &AddTagsGroup::commandId));

}  // namespace

std::span<const AddTagsGroup> addTagsGroups() {
    return kGroups;
}

const AddTagsGroup& addTagsGroupOf(int commandId) {
    const auto* const found = std::ranges::lower_bound(kGroups, commandId, {}, &AddTagsGroup::commandId);
    return found == kGroups.end() || found->commandId != commandId ? kOtherwise : *found;
}

}  // namespace taglists
