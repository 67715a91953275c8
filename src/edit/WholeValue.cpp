#include "edit/WholeValue.h"

#include "exiftool/LineParts.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "tags/Entries.h"

namespace edit {

namespace fs = std::filesystem;
using platform::CommandText;

namespace {

/// A character that no text has.
constexpr char kSeparator = '\x1E';

QByteArray bytesOf(const fs::path& file) {
    return QByteArray::fromStdString(platform::readOwnFile(file));
}

}  // namespace

bool couldBeShortened(QStringView shown, bool severalValues) {
    return shown.contains(u'.') || (severalValues && shown.contains(u", "));
}

CommandText wholeValueCommand(const app::AppContext& context, app::CommandForm form, const fs::path& file,
                              const fs::path& output, QStringView group, QStringView name) {
    CommandText command = exiftool::toolStartWithLanguage(context, form);
    command.literal(" -b -sep \"").literal(std::string_view(&kSeparator, 1)).literal("\" ");
    command.literal(exiftool::kFileNameCharset).literal("-").outside(platform::narrow(group));
    command.literal(":").outside(platform::narrow(name)).literal(" \"");
    command.outside(exiftool::fileWord(file)).literal("\" >\"").outside(platform::narrow(output));
    return command.literal("\"");
}

QStringList entriesOfOutput(const QByteArray& output) {
    QStringList entries;
    if (output.isEmpty()) return entries;
    for (const QByteArray& entry : output.split(kSeparator)) entries.append(QString::fromUtf8(entry));
    return entries;
}

jobs::EditableValue editableValue(const jobs::OperationParts& parts, app::CommandForm form,
                                  const fs::path& file, const tags::TagRecord& tag, const QString& shown) {
    const bool asksNothing = form == app::CommandForm::Designed || tag.valueKind != tags::ValueKind::Text;
    const bool several = parts.labels.takesSeveralValues(static_cast<int>(tag.id));
    if (asksNothing || !couldBeShortened(shown, several)) return {shown, {}};
    const fs::path output = parts.context.tempPath / "Value.txt";
    std::error_code ignored;
    fs::remove(output, ignored);
    const CommandText command = wholeValueCommand(parts.context, form, file, output,
                                                  platform::wide(tag.group), platform::wide(tag.name));
    static_cast<void>(parts.runner.RunToolLine(command));
    const std::string fault = parts.runner.lastFaultOfRead(output);
    if (!fault.empty()) return {{}, platform::wide(fault)};
    const QStringList entries = entriesOfOutput(bytesOf(output));
    fs::remove(output, ignored);
    // Another answer than the row: the file has changed, has the tag twice, or stores what is shown as
    // numbers.
    const bool isSame = tags::panelText(entries) == shown;
    if (several) return {tags::joinEntries(isSame ? entries : shown.split(QStringLiteral(", "))), {}};
    return {isSame ? entries.join(QStringLiteral(", ")) : shown, {}};
}

}  // namespace edit
