#include "taglists/TagValueLines.h"

#include "exiftool/LineParts.h"
#include "exiftool/WriteCommands.h"
#include "exiftool/WriteTag.h"
#include "platform/Text.h"

#include <array>

namespace taglists {

namespace fs = std::filesystem;
using exiftool::fragments::kFileNameCharsetAndQuote;
using exiftool::fragments::kOverwriteOriginal;
using exiftool::fragments::kOverwriteOriginalBehind;
using platform::CommandText;

namespace {

/// `"TOOL"`, for lines whose terms have their blank in front.
CommandText tool(const app::AppContext& context) {
    return CommandText("\"").outside(platform::narrow(context.exifToolPath)).literal("\"");
}

/// ` -charset filename=UTF8 "FILE"`
void appendFile(CommandText& command, const fs::path& file) {
    command.literal(kFileNameCharsetAndQuote).outside(exiftool::fileWord(file)).literal("\"");
}

/// What the user did not type stays inside its argument.
bool isTyped(const TagRow& row) {
    return row.changed && !row.loaded;
}

CommandText quotedValue(const TagRow& row, const QString& value) {
    if (isTyped(row)) return exiftool::editedValue(app::CommandForm::Designed, value, row.fileValue);
    return CommandText("\"").outside(platform::exactBytes(value)).literal("\"");
}

/// `-GROUP:NAME="VALUE"`
CommandText rowTerm(const TagRow& row, QStringView group, const QString& value) {
    CommandText term("-");
    term.outside(platform::narrow(group)).literal(":").outside(platform::narrow(row.name)).literal("=");
    return term.append(quotedValue(row, value));
}

struct Spelling {
    QStringView shown;
    QStringView written;
};

/// ExifTool's words for it, which the lists of this dialog have always spelled so, are taken as numbers.
QString addedValue(const TagRow& row) {
    static constexpr std::array<Spelling, 2> kMeasureModes{
        {{u"2-Dimentional Measurement", u"2"}, {u"3-Dimentional Measurement", u"3"}}};
    if (row.name != u"GPSMeasureMode") return row.value;
    for (const Spelling& mode : kMeasureModes)
        if (row.value == mode.shown) return mode.written.toString();
    return row.value;
}

int indexOfCode(const tags::LabelLibrary& labels, int tagId, const QString& value) {
    QString label;
    QString code;
    for (int at = 0; labels.GetLibelleCombo(tagId, label, code, at); ++at)
        if (code == value) return at;
    return -1;
}

QString codeOf(const jobs::OperationParts& parts, const TagRow& row) {
    if (row.severalEntries) return {};
    if (!row.code.isEmpty() || row.kind != tags::ValueKind::List || row.value.isEmpty()) return row.code;
    QString label;
    QString code;
    int index = parts.labels.GetComboIndex(row.tagId, row.value);
    if (index < 0) index = indexOfCode(parts.labels, row.tagId, row.value);
    if (index >= 0) parts.labels.GetLibelleCombo(row.tagId, label, code, index);
    return code;
}

}  // namespace

CommandText emptyGroupOfFirstRowCommand(const app::AppContext& context, const TagRows& rows,
                                        const fs::path& file) {
    CommandText command = tool(context).literal(" -m -");
    command.outside(rows.empty() ? std::string() : platform::narrow(rows.front().group)).literal("=");
    if (!file.empty()) appendFile(command, file);
    return command;
}

CommandText writeRowsCommand(const app::AppContext& context, const TagRows& rows, const fs::path& file) {
    CommandText command = tool(context);
    for (const TagRow& row : rows) {
        if (!row.value.isEmpty()) command.literal(" ").append(rowTerm(row, row.group, row.value));
    }
    command.literal(" -n -z").literal(kOverwriteOriginalBehind);
    appendFile(command, file);
    return command;
}

CommandText writeGpsRowsCommand(const app::AppContext& context, const TagRows& rows, const fs::path& file) {
    CommandText command = tool(context).literal(" -m");
    for (const TagRow& row : rows) {
        command.literal(" -GPS:").outside(platform::narrow(row.name)).literal("=");
        if (isTyped(row))
            command.typed(platform::narrow(row.value));
        else
            command.outside(platform::narrow(row.value));
        command.literal(" ");
    }
    return command.literal(kOverwriteOriginal).literal("\"").outside(exiftool::fileWord(file)).literal("\"");
}

CommandText emptyGroupCommand(const app::AppContext& context, QStringView group, const fs::path& file) {
    CommandText command = tool(context).literal(" -").outside(platform::narrow(group)).literal("=");
    appendFile(command, file);
    return command;
}

CommandText addRowsCommand(const app::AppContext& context, const TagRows& rows, QStringView group,
                           const fs::path& file) {
    CommandText command = tool(context);
    for (const TagRow& row : rows) {
        if (!row.value.isEmpty()) command.literal(" ").append(rowTerm(row, group, addedValue(row)));
    }
    command.literal(kOverwriteOriginalBehind);
    appendFile(command, file);
    return command.literal(" 2>\"").outside(platform::narrow(context.reportFile)).literal("\"");
}

CommandText addRowsToOneFileCommand(const app::AppContext& context, const TagRows& rows, QStringView group,
                                    const fs::path& file) {
    CommandText command = exiftool::toolStart(context);
    for (const TagRow& row : rows) {
        if (!row.value.isEmpty()) command.append(rowTerm(row, group, row.value)).literal(" ");
    }
    command.literal(kOverwriteOriginal).literal(exiftool::kFileNameCharset).literal("\"");
    return command.outside(exiftool::fileWord(file)).literal("\"");
}

app::CurrentEdit editOfTagRow(const jobs::OperationParts& parts, const TagRow& row) {
    app::CurrentEdit edit;
    edit.id = row.tagId;
    edit.name = row.name;
    edit.group = row.group;
    edit.value = row.value;
    edit.comboCode = codeOf(parts, row);
    edit.valueKind = row.kind ? static_cast<int>(*row.kind) : -1;
    edit.writable = true;
    edit.valueBefore = row.fileValue;
    edit.severalValues = row.severalEntries;
    // Under its bare name ExifTool deletes the other languages with it.
    if (parts.labels.keepsLanguages(row.tagId))
        edit.language = QStringLiteral("x-default");
    else
        edit.translations = row.translations;
    return edit;
}

std::vector<app::CurrentEdit> changedTags(const jobs::OperationParts& parts, const TagRows& rows) {
    std::vector<app::CurrentEdit> changed;
    for (const TagRow& row : rows)
        if (row.changed) changed.push_back(editOfTagRow(parts, row));
    return changed;
}

CommandText writeChangedTagsCommand(const app::AppContext& context,
                                    const std::vector<app::CurrentEdit>& changed, const fs::path& file) {
    CommandText command =
        exiftool::toolStart(context).append(exiftool::termsOfTags(app::CommandForm::Corrected, changed));
    command.literal(kOverwriteOriginal).literal(exiftool::kFileNameCharset).literal("\"");
    command.outside(exiftool::fileWord(file)).literal("\"");
    return command.append(exiftool::reportBehind(context));
}

}  // namespace taglists
