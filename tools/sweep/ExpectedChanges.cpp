#include "sweep/ExpectedChanges.h"

#include <array>

namespace sweep {

namespace {

struct Expected {
    std::string_view editedGroup;  ///< how it begins; empty for any
    std::string_view editedTag;    ///< whole; empty for any
    std::string_view group;        ///< how it begins; empty for any
    std::string_view tag;          ///< how it ends; empty for any
    std::string_view reason;
};

constexpr std::string_view kNotes = "notes of the maker are read by the camera's model";

constexpr auto kExpected = std::to_array<Expected>({
    {"", "", "Composite", "", "computed from other tags"},
    {"XMP", "", "XMP-x", "XMPToolkit", "ExifTool names itself as the writer of XMP"},
    {"IPTC", "", "File", "CurrentIPTCDigest", "computed from the IPTC record"},
    {"IPTC", "", "Photoshop", "IPTCDigest", "kept equal to the IPTC record"},
    {"IPTC", "", "IPTC", "CodedCharacterSet", "a text beyond Latin is marked as UTF-8"},
    {"", "", "", "Offset", "where data lie in the file moves with its size"},
    {"", "", "", "Offsets", "where data lie in the file moves with its size"},
    {"", "", "", "Start", "where data lie in the file moves with its size"},
    {"", "", "ExifTool", "", "ExifTool's remarks about the file"},
    {"", "", "File", "PreviewImage", "the picture that a raw file is wrapped around holds its tags"},
    {"IFD", "Compression", "IFD1", "Compression", "ExifTool completes a thumbnail's IFD"},
    {"IFD", "ResolutionUnit", "IFD1", "ResolutionUnit", "ExifTool completes a thumbnail's IFD"},
    {"IFD", "XResolution", "IFD1", "Resolution", "ExifTool completes a thumbnail's IFD"},
    {"IFD", "YResolution", "IFD1", "Resolution", "ExifTool completes a thumbnail's IFD"},
    {"IFD0", "Model", "Canon", "", kNotes},
    {"IFD0", "Model", "Olympus", "", kNotes},
    {"IFD0", "Model", "Ricoh", "", kNotes},
});

}  // namespace

std::string_view reasonOfChange(std::string_view editedGroup, std::string_view editedTag,
                                std::string_view group, std::string_view tag) {
    for (const Expected& row : kExpected) {
        if (!editedGroup.starts_with(row.editedGroup)) continue;
        if (!row.editedTag.empty() && row.editedTag != editedTag) continue;
        if (group.starts_with(row.group) && tag.ends_with(row.tag)) return row.reason;
    }
    return {};
}

}  // namespace sweep
