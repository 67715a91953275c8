#include "tags/TagFamilies.h"

#include <algorithm>

namespace tags {

namespace {

constexpr std::uint32_t kExif[] = {1086, 1413, 1414, 1415, 1507, 1416, 1417, 1716, 1800, 1418, 1419, 1712};
constexpr std::uint32_t kIptc[] = {1421, 1422, 1423, 1424, 1713, 1714};
constexpr std::uint32_t kXmp[] = {
    1088, 1425, 1426, 1427, 2003, 1428, 1472, 1429, 1474, 1671, 1670, 1430, 1431, 1432, 1433, 1434,
    1435, 1436, 1152, 1437, 1438, 1439, 1672, 1669, 1668, 1444, 1445, 1446, 1447, 1448, 1449, 1450,
    1451, 1452, 1453, 1454, 1455, 1151, 1456, 1457, 1458, 996,  1124, 1459, 1460, 1473, 1462, 1461,
    1686, 1463, 1478, 1479, 1476, 1475, 1464, 1477, 1480, 1465, 1466, 1648, 1664, 1468, 1719, 1663,
    1929, 1486, 1471, 1469, 1470, 1517, 1487, 1711, 1647, 1100, 1101, 1096, 1685};
constexpr std::uint32_t kGps[] = {1076};
constexpr std::uint32_t kIcc[] = {1558, 1560, 1561, 1559, 1562, 1563, 1564};
// 1730 stands twice, as the lists that dialogs show do.
constexpr std::uint32_t kAudio[] = {1596, 973,  1602, 1603, 1074, 978,  1597, 1598, 1599, 975, 1605,
                                    1516, 1518, 1519, 1520, 1497, 980,  1592, 1593, 977,  979, 1512,
                                    1513, 1514, 1515, 1732, 1733, 1734, 1735, 2005, 1730, 1730};
constexpr std::uint32_t kDicom[] = {1137, 1438};
constexpr std::uint32_t kImages[] = {1411, 1506, 1660, 1509, 1566, 1575, 1505,
                                     1504, 1752, 1574, 1492, 1572, 1511};
constexpr std::uint32_t kMakers[] = {1357, 1634, 1705, 1358, 1704, 1398, 1399, 1370, 1501, 989, 998, 1723,
                                     1381, 1362, 1376, 1503, 988,  1665, 1667, 1581, 1806, 993, 990, 991,
                                     1715, 1359, 1409, 1706, 1363, 1360, 1350, 1361, 1582, 1583};
constexpr std::uint32_t kDocuments[] = {1804, 1385, 1615, 1612, 1616, 1809, 1489, 1378, 1803,
                                        1057, 1379, 1703, 1701, 1702, 987,  1395, 985,  986};
constexpr std::uint32_t kVideo[] = {1552, 1555, 1549, 1554, 1551, 1556, 1548, 1550, 1553, 1557, 981,  1604,
                                    1608, 1607, 1606, 1692, 1367, 1366, 1494, 1544, 1498, 982,  1594, 1595,
                                    1365, 1709, 1710, 1777, 1782, 1783, 1784, 1785, 1495, 1382};

constexpr TagFamily kFamilies[] = {
    {1, u"EXIF", kExif},     {2, u"IPTC", kIptc},
    {3, u"XMP", kXmp},       {4, u"GPS", kGps},
    {5, u"ICC", kIcc},       {6, u"Audio", kAudio},
    {7, u"DICOM", kDicom},   {8, u"Images", kImages},
    {9, u"Makers", kMakers}, {10, u"Documents", kDocuments},
    {11, u"Video", kVideo},
};

}  // namespace

std::span<const TagFamily> tagFamilies() {
    return kFamilies;
}

const TagFamily* findFamily(int number) {
    const auto found = std::ranges::find(kFamilies, number, &TagFamily::number);
    return found == std::end(kFamilies) ? nullptr : &*found;
}

bool familyHasCategory(const TagFamily& family, std::uint32_t categoryId) {
    return std::ranges::find(family.categories, categoryId) != family.categories.end();
}

std::vector<const TagRecord*> tagsOfFamily(const TagDictionary& dictionary, const TagFamily& family) {
    std::vector<const TagRecord*> found;
    for (const TagRecord& record : dictionary.records()) {
        if (familyHasCategory(family, record.categoryId)) found.push_back(&record);
    }
    return found;
}

}  // namespace tags
