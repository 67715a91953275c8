#include "taglists/RemovalLines.h"

#include "exiftool/WriteCommands.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace taglists {

namespace fs = std::filesystem;
namespace fragments = exiftool::fragments;
using app::CommandForm;
using exiftool::fileWord;
using platform::CommandText;

namespace {

/// ExifTool's own names: families and parts of EXIF, blocks of other makers, XMP namespaces.
constexpr auto kRemovableGroups = std::to_array<const char*>({"EXIF",
                                                              "IFD0",
                                                              "IFD1",
                                                              "SubIFD",
                                                              "ExifIFD",
                                                              "InteropIFD",
                                                              "GPS",
                                                              "MakerNotes",
                                                              "IPTC",
                                                              "XMP",
                                                              "Photoshop",
                                                              "ICC_Profile",
                                                              "Adobe",
                                                              "JFIF",
                                                              "Ducky",
                                                              "MPF",
                                                              "FlashPix",
                                                              "PrintIM",
                                                              "CanonVRD",
                                                              "NikonCapture",
                                                              "PhotoMechanic",
                                                              "FotoStation",
                                                              "AFCP",
                                                              "CIFF",
                                                              "Jpeg2000",
                                                              "PNG",
                                                              "PDF",
                                                              "QuickTime",
                                                              "ItemList",
                                                              "Keys",
                                                              "UserData",
                                                              "MIE",
                                                              "Microsoft",
                                                              "Meta",
                                                              "RMETA",
                                                              "Trailer",
                                                              "XMP-aas",
                                                              "XMP-acdsee",
                                                              "XMP-album",
                                                              "XMP-apple-fi",
                                                              "XMP-ast",
                                                              "XMP-aux",
                                                              "XMP-cc",
                                                              "XMP-cell",
                                                              "XMP-crd",
                                                              "XMP-creatorAtom",
                                                              "XMP-crs",
                                                              "XMP-dc",
                                                              "XMP-Device",
                                                              "XMP-dex",
                                                              "XMP-DICOM",
                                                              "XMP-digiKam",
                                                              "XMP-drone-dji",
                                                              "XMP-dwc",
                                                              "XMP-exif",
                                                              "XMP-exifEX",
                                                              "XMP-expressionmedia",
                                                              "XMP-extensis",
                                                              "XMP-fpv",
                                                              "XMP-GAudio",
                                                              "XMP-GCamera",
                                                              "XMP-GCreations",
                                                              "XMP-GDepth",
                                                              "XMP-getty",
                                                              "XMP-GFocus",
                                                              "XMP-GImage",
                                                              "XMP-GPano",
                                                              "XMP-GSpherical",
                                                              "XMP-hdr",
                                                              "XMP-ics",
                                                              "XMP-iptcCore",
                                                              "XMP-iptcExt",
                                                              "XMP-LImage",
                                                              "XMP-lr",
                                                              "XMP-mediapro",
                                                              "XMP-microsoft",
                                                              "XMP-MP",
                                                              "XMP-MP1",
                                                              "XMP-mwg-coll",
                                                              "XMP-mwg-kw",
                                                              "XMP-mwg-rs",
                                                              "XMP-nine",
                                                              "XMP-pdf",
                                                              "XMP-pdfx",
                                                              "XMP-photomech",
                                                              "XMP-photoshop",
                                                              "XMP-PixelLive",
                                                              "XMP-plus",
                                                              "XMP-pmi",
                                                              "XMP-prism",
                                                              "XMP-prl",
                                                              "XMP-prm",
                                                              "XMP-pur",
                                                              "XMP-rdf",
                                                              "XMP-sdc",
                                                              "XMP-swf",
                                                              "XMP-tiff",
                                                              "XMP-x",
                                                              "XMP-xmp",
                                                              "XMP-xmpBJ",
                                                              "XMP-xmpDM",
                                                              "XMP-xmpMM",
                                                              "XMP-xmpNote",
                                                              "XMP-xmpPLUS",
                                                              "XMP-xmpRights",
                                                              "XMP-xmpTPg"});

void appendTerms(CommandText& command, const std::vector<TagAddress>& tags, std::string_view lead) {
    for (const TagAddress& tag : tags) {
        if (!isPlainName(tag.group) || !isPlainName(tag.name)) continue;
        command.literal(lead).outside(tag.group).literal(":").outside(tag.name).literal("= ");
    }
}

CommandText& endWithFile(CommandText& command, const app::AppContext& context, CommandForm form,
                         const fs::path& file) {
    command.literal(fragments::kFileNameCharset).literal("\"").outside(fileWord(file)).literal("\"");
    return command.append(exiftool::reportBehind(context, form));
}

}  // namespace

bool isPlainName(std::string_view name) {
    const auto isPlain = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_';
    };
    return !name.empty() && std::all_of(name.begin(), name.end(), isPlain);
}

CommandText removeTagsOfFileCommand(const app::AppContext& context, CommandForm form,
                                    const std::vector<TagAddress>& tags, const fs::path& file) {
    CommandText command = exiftool::toolStart(context);
    appendTerms(command, tags, "-");
    command.literal(fragments::kOverwriteOriginal);
    return endWithFile(command, context, form, file);
}

CommandText removeTagsOfSelectionCommand(const app::AppContext& context, CommandForm form,
                                         const std::vector<TagAddress>& tags, const fs::path& file) {
    CommandText command("\"");
    command.outside(platform::narrow(context.exifToolPath)).literal("\"");
    appendTerms(command, tags, " -");
    command.literal(fragments::kQuietOverwriteOriginal);
    return endWithFile(command, context, form, file);
}

CommandText removeTypesCommand(const app::AppContext& context, CommandForm form,
                               const std::vector<std::string>& groups, const fs::path& fileList) {
    CommandText command = exiftool::toolStart(context);
    command.literal("-@ \"").outside(platform::narrow(fileList)).literal("\"");
    if (form == CommandForm::Designed) {
        command.literal(" -overwrite_original \"");
        for (const std::string& group : groups) command.outside(group).literal("= ");
        return command.literal("\"");
    }
    command.literal(" -overwrite_original -charset filename=UTF8");
    for (const std::string& group : groups) {
        if (isPlainName(group)) command.literal(" -").outside(group).literal(":All=");
    }
    return command.append(exiftool::reportBehind(context));
}

CommandText deleteAllArguments(CommandForm form, const DeleteAllChoice& choice) {
    CommandText arguments;
    if (choice.everything) {
        arguments.literal(" -All=");
    } else {
        if (choice.exif) arguments.literal(" -EXIF:All=");
        if (choice.iptc) arguments.literal(" -IPTC:All=");
        if (choice.xmp) arguments.literal(" -XMP:All=");
    }
    if (form == CommandForm::Designed) return arguments;
    if (choice.keepDate) arguments.literal(" -P");
    if (choice.hasSafetyCopy) arguments.literal(fragments::kOverwriteOriginalBehind);
    return arguments;
}

CommandText heldTagsCommand(const app::AppContext& context, CommandForm form, const fs::path& fileList,
                            const std::vector<fs::path>& otherFiles, const fs::path& output) {
    CommandText command = exiftool::toolStartWithLanguage(context, form);
    command.literal(" -a -sort -S -G1 --ExifToolVersion -x System:all ").literal(fragments::kFileNameCharset);
    if (!fileList.empty()) command.literal("-@ \"").outside(platform::narrow(fileList)).literal("\" ");
    for (const fs::path& file : otherFiles) command.literal("\"").outside(fileWord(file)).literal("\" ");
    return command.literal(">\"").outside(platform::narrow(output)).literal("\"");
}

std::span<const char* const> removableGroups() {
    return kRemovableGroups;
}

}  // namespace taglists
