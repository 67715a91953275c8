#include "payload/PayloadCommandText.h"

#include "exiftool/LineParts.h"
#include "exiftool/WriteCommands.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace payload {

namespace fs = std::filesystem;
using app::CommandForm;
using exiftool::fileWord;
using exiftool::reportBehind;
using exiftool::toolStart;
using platform::CommandText;

namespace {

constexpr auto kThumbnailExports = std::to_array<PayloadExport>({
    {1008, "PhotoshopThumbnail", "-PhotoshopThumbnail -b ", "_PhotoshopThumbnail.jpg"},
    {1009, "JPGFromRaw", "-JPGFromRaw -b ", "_JPGFromRaw.jpg"},
    {1011, "ThumbnailTIFF", "-ThumbnailTIFF -b ", "_ThumbnailTIFF.tif"},
    {1069, "PreviewImage", "-PreviewImage -b ", "_PreviewImage.jpg"},
    {1079, "CoverArt", "-CoverArt -b ", "_CoverArt.jpg"},
    {1081, "ThumbnailImage", "-ThumbnailImage -b ", "_ThumbnailImage.jpg"},
    {1089, "OtherImage", "-OtherImage -b ", "_OtherImage.jpg"},
    {1678, "Picture", "-Picture -b ", "_Picture.jpg"},
});

constexpr PayloadExport kIccExport{0, "ICC_Profile", "-icc_profile -b ", ".icc"};

bool isTagWord(QStringView word) {
    return std::ranges::all_of(
        word, [](QChar c) { return c == u'-' || c == u'_' || (c.unicode() < 0x80 && c.isLetterOrNumber()); });
}

CommandText replacement(const app::AppContext& context, const fs::path& picture, const fs::path& file) {
    CommandText command = toolStart(context).literal("\"-ThumbnailImage<=").outside(fileWord(picture));
    command.literal("\"").literal(exiftool::fragments::kOverwriteOriginalBehind).literal(" \"");
    return command.outside(fileWord(file)).literal("\"");
}

}  // namespace

std::span<const PayloadExport> thumbnailExports() {
    return kThumbnailExports;
}

const PayloadExport& iccExport() {
    return kIccExport;
}

CommandText fetchPayloadCommand(const app::AppContext& context, QStringView group, QStringView tag,
                                const fs::path& file, const fs::path& output) {
    if (tag.isEmpty() || !isTagWord(tag) || !isTagWord(group)) return {};
    CommandText command = toolStart(context).literal("-");
    if (!group.isEmpty() && group.compare(u"System", Qt::CaseInsensitive) != 0)
        command.outside(platform::narrow(group.toString())).literal(":");
    command.outside(platform::narrow(tag.toString())).literal(" -u -b \"").outside(fileWord(file));
    return command.literal("\" >\"").outside(platform::narrow(output)).literal("\"");
}

CommandText replaceThumbnailCommand(const app::AppContext& context, CommandForm form, const fs::path& picture,
                                    const fs::path& file) {
    return replacement(context, picture, file).append(reportBehind(context, form));
}

CommandText deleteThumbnailCommand(const app::AppContext& context, CommandForm form, const fs::path& file) {
    CommandText command = toolStart(context).literal("-ThumbnailImage= ");
    command.literal(exiftool::fragments::kOverwriteOriginal).literal("\"").outside(fileWord(file));
    return command.literal("\"").append(reportBehind(context, form));
}

CommandText addThumbnailCommand(const app::AppContext& context, CommandForm form, const fs::path& picture,
                                const fs::path& file) {
    if (form == CommandForm::Corrected) return replaceThumbnailCommand(context, form, picture, file);
    CommandText command = replacement(context, picture, file).literal(" 2>\"");
    return command.outside(platform::narrow(context.reportFile)).literal("\"");
}

CommandText exportPayloadCommand(const app::AppContext& context, CommandForm form,
                                 const PayloadExport& payload, const fs::path& file, const fs::path& target) {
    CommandText command = toolStart(context).literal(payload.argument).literal("\"");
    command.outside(fileWord(file)).literal("\" >\"").outside(fileWord(target)).literal("\"");
    return command.append(reportBehind(context, form));
}

bool isNamePattern(std::string_view path) {
    return path.find('%') != std::string_view::npos;
}

}  // namespace payload
