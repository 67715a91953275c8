#include "edit/WholeValue.h"

#include "exiftool/ExifToolTexts.h"
#include "exiftool/LineParts.h"
#include "jobs/JobTexts.h"
#include "platform/Text.h"
#include "tags/Entries.h"
#include "tags/ExactOutput.h"

namespace edit {

namespace fs = std::filesystem;
using app::CommandForm;
using platform::CommandText;

namespace {

/// A tag whose plain entry can be written alone, and one that is a language's own, leave the others alone.
bool deletesTranslations(const jobs::OperationParts& parts, const tags::TagRecord& tag, const QString& name) {
    return !isTranslation(name, tag) && !parts.labels.keepsLanguages(static_cast<int>(tag.id));
}

}  // namespace

CommandText wholeValueCommand(const app::AppContext& context, CommandForm form, const fs::path& file,
                              const fs::path& output, QStringView group, QStringView name) {
    CommandText command = exiftool::toolStartWithLanguage(context, form);
    command.literal(" -a -S -G1").literal(exiftool::kExactly).literal(" ");
    command.literal(exiftool::kFileNameCharset);
    for (const char* ending : {" ", "-* "}) {
        command.literal("-").outside(platform::narrow(group)).literal(":");
        command.outside(platform::narrow(name)).literal(ending);
    }
    command.literal("\"").outside(exiftool::fileWord(file)).literal("\" >\"");
    return command.outside(platform::narrow(output)).literal("\"");
}

bool isTranslation(QStringView name, const tags::TagRecord& tag) {
    const auto parted = tags::splitLanguage(name);
    return parted && parted->tag.compare(platform::wide(tag.name), Qt::CaseInsensitive) == 0;
}

HeldValues readValues(const jobs::OperationParts& parts, CommandForm form, const fs::path& file,
                      QStringView group, QStringView name) {
    const fs::path output = parts.context.tempPath / "Value.txt";
    std::error_code ignored;
    fs::remove(output, ignored);
    static_cast<void>(
        parts.runner.RunToolLine(wholeValueCommand(parts.context, form, file, output, group, name)));
    HeldValues held;
    held.fault = platform::wide(parts.runner.lastFaultOfRead(output));
    if (!held.fault.isEmpty()) return held;
    const bool isRead = tags::forEachExactLine(output, [&](const tags::ExactLine& line) {
        if (line.name.compare(name, Qt::CaseInsensitive) == 0)
            held.entries.push_back(line.entries);
        else if (const auto parted = tags::splitLanguage(line.name); parted && parted->tag == name)
            held.translations.push_back({line.name, line.entries.join(QStringLiteral(", "))});
    });
    if (!isRead) held.fault = parts.language.text(exiftool::text::kNoAnswer);
    fs::remove(output, ignored);
    return held;
}

EditableValue editableValue(const jobs::OperationParts& parts, CommandForm form, const fs::path& file,
                            const tags::TagRecord& tag, const QString& name, const QString& shown) {
    EditableValue value;
    value.text = shown;
    if (form == CommandForm::Designed) return value;
    const bool takesSeveral = parts.labels.takesSeveralValues(static_cast<int>(tag.id));
    const QString group = platform::wide(tag.group);
    HeldValues held = readValues(parts, form, file, group, name);
    if (!held.fault.isEmpty()) {
        EditableValue failed;
        failed.fault = held.fault;
        return failed;
    }
    if (held.entries.size() > 1)
        value.refusal = parts.language.formatted(jobs::text::kStandsTwice,
                                                 {name, QString::number(held.entries.size()), group});
    if (deletesTranslations(parts, tag, name)) value.translations = std::move(held.translations);
    QStringList entries = held.entries.empty() ? QStringList(shown) : held.entries.front();
    const bool isText = tag.valueKind == tags::ValueKind::Text;
    value.severalEntries = takesSeveral && (isText || entries.size() > 1);
    // A row of another kind is edited as it is shown, which tells all of it.
    if (value.severalEntries)
        value.text = shown.isEmpty() && held.entries.empty() ? QString() : tags::joinEntries(entries);
    else if (isText)
        value.text = entries.join(QStringLiteral(", "));
    return value;
}

}  // namespace edit
