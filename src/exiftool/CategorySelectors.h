#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace exiftool {

/// What the category read asks ExifTool for, by the category of the group that a dialog works on.
struct CategorySelector {
    int categoryId;
    std::string_view designed;
    /// The group under ExifTool's own name, for those that it knows by another; empty: designed and ":All ".
    std::string_view corrected;
};

/// Sorted by category.
inline constexpr std::array<CategorySelector, 89> kCategorySelectors{{
    {996, "-XMP-idpriv", ""},
    {1076, "-GPS:All ", ""},
    {1088, "-XMP", ""},
    {1096, "-XMP-xmpRights", ""},
    {1100, "-XMP-xmpNote", ""},
    {1101, "-XMP-xmpTpg", ""},
    {1124, "-XMP-illustrator", ""},
    {1151, "-XMP-Gml", ""},
    {1152, "-XMP-DepthData", ""},
    {1153, "-XMP-DepthBlueEffect", ""},
    {1351, "-XMP-attr", ""},
    {1421, "-EnvelopeRecord", "-IPTC:All "},
    {1422, "-ApplicationRecord", "-IPTC:All "},
    {1423, "-NewsPhoto", "-IPTC:All "},
    {1425, "-XMP-aas", ""},
    {1426, "-XMP-acdsee", ""},
    {1427, "-XMP-album", ""},
    {1428, "-XMP-AppleFI", "-XMP-apple-fi:All "},
    {1429, "-XMP-aux", ""},
    {1430, "-XMP-Cc", ""},
    {1431, "-XMP-Cell", ""},
    {1432, "-XMP-Claro", ""},
    {1433, "-XMP-Crd", ""},
    {1434, "-XMP-CreatorAtom", ""},
    {1435, "-XMP-crs", ""},
    {1436, "-XMP-dc", ""},
    {1437, "-XMP-Dex", ""},
    {1438, "-XMP-Dicom", ""},
    {1439, "-XMP-Digikam", ""},
    {1444, "-XMP-exif", ""},
    {1445, "-XMP-exifEX", ""},
    {1446, "-XMP-expressionmedia", ""},
    {1447, "-XMP-extensis", ""},
    {1448, "-XMP-fpv", ""},
    {1449, "-XMP-GAudio", ""},
    {1450, "-XMP-GCamera", ""},
    {1451, "-XMP-GCreations", ""},
    {1452, "-XMP-GDepth", ""},
    {1453, "-XMP-Getty", ""},
    {1454, "-XMP-GFocus", ""},
    {1455, "-XMP-GImage", ""},
    {1456, "-XMP-GPano", ""},
    {1457, "-XMP-GSpherical", ""},
    {1458, "-XMP-ics", ""},
    {1459, "-XMP-iptcCore", ""},
    {1460, "-XMP-iptcExt", ""},
    {1462, "-XMP-lightroom", "-XMP-lr:All "},
    {1463, "-XMP-mediapro", ""},
    {1464, "-XMP-pdf", ""},
    {1465, "-XMP-photoshop", ""},
    {1466, "-XMP-pixellive", ""},
    {1468, "-XMP-rdf", ""},
    {1469, "-XMP-swf", ""},
    {1470, "-XMP-tiff", ""},
    {1472, "-XMP-art", ""},
    {1473, "-XMP-lfaschema", ""},
    {1474, "-XMP-xmpBJ", ""},
    {1475, "-XMP-opmedia", ""},
    {1476, "-XMP-Mp", ""},
    {1477, "-XMP-pdfx", ""},
    {1478, "-XMP-microsoft", ""},
    {1479, "-XMP-mp1", ""},
    {1480, "-XMP-photomech", ""},
    {1486, "-XMP-x", ""},
    {1487, "-XMP-xmp", ""},
    {1517, "-XMP-webdam", ""},
    {1647, "-XMP-xmpMM", ""},
    {1648, "-XMP-plus", ""},
    {1663, "-XMP-subversion", ""},
    {1664, "-XMP-prism", ""},
    {1668, "-XMP-Dwc", ""},
    {1669, "-XMP-Drone-Parrot", ""},
    {1670, "-XMP-Camera_1_", ""},
    {1671, "-XMP-Camera", ""},
    {1672, "-XMP-Drone-Dji", ""},
    {1685, "-XMP-xmpXsi", ""},
    {1686, "-XMP-mets", ""},
    {1711, "-XMP-xmpDM", ""},
    {1713, "-IPTC2", ""},
    {1719, "-XMP-silverfast", ""},
    {1807, "-XMP-pmtm-1", ""},
    {1808, "-XMP-mwg-rs", ""},
    {1811, "-XMP-xmpXs", ""},
    {1812, "-XMP-xmpXsd", ""},
    {1813, "-XMP-xmpXsl", ""},
    {1929, "-XMP-vrae", ""},
    {2003, "-XMP-AnalogExif", ""},
    {2004, "-XMP-APDI", ""},
    {2016, "-XMP-leaf", ""},
}};

static_assert(std::is_sorted(kCategorySelectors.begin(), kCategorySelectors.end(),
                             [](const auto& left, const auto& right) {
                                 return left.categoryId < right.categoryId;
                             }));

/// For every category that the table lacks, but kCategoryOfEverything.
inline constexpr std::string_view kOtherCategorySelector = "-EXIF:All ";

/// Is read without a selector.
inline constexpr int kCategoryOfEverything = 7;

}  // namespace exiftool
