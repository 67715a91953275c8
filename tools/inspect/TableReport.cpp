#include "inspect/TableReport.h"

#include "app/CommandTable.h"
#include "platform/Text.h"
#include "tags/GroupCatalogue.h"
#include "tags/TagDictionary.h"

#include <QString>

namespace inspect {

namespace {

const char* gateName(tags::GroupGate gate) {
    switch (gate) {
        case tags::GroupGate::None:
            return "-";
        case tags::GroupGate::Exif:
            return "ShowExif";
        case tags::GroupGate::Iptc:
            return "ShowIptc";
        case tags::GroupGate::Xmp:
            return "ShowXmp";
        case tags::GroupGate::Icc:
            return "ShowIcc";
        case tags::GroupGate::MakerNotes:
            return "ShowMakerNotes";
        case tags::GroupGate::Gps:
            return "ShowGps";
        case tags::GroupGate::Composite:
            return "ShowComposite";
    }
    return "-";
}

}  // namespace

void reportDictionary(std::ostream& output) {
    const tags::TagDictionary dictionary;
    output << "id\tname\ttableId\tgroup\tgroupIndex\tvalueKind\twritable\tcategoryId\n";
    for (const tags::TagRecord& record : dictionary.records())
        output << record.id << '\t' << platform::narrow(record.name) << '\t' << record.tableId << '\t'
               << platform::narrow(record.group) << '\t' << record.groupIndex << '\t'
               << static_cast<std::uint32_t>(record.valueKind) << '\t' << (record.writable ? 1 : 0) << '\t'
               << record.categoryId << '\n';
}

void reportCatalogue(std::ostream& output) {
    output << "position\tgroupId\tkey\timage\tgate\tcounted\n";
    std::uint32_t position = 0;
    for (const tags::GroupEntry& entry : tags::groupTable()) {
        output << position << '\t' << entry.groupId << '\t' << platform::narrow(entry.key) << '\t'
               << static_cast<int>(tags::GroupIconClass(position)) << '\t'
               << gateName(tags::groupGateOf(entry.groupId)) << '\t'
               << (tags::groupHasRows(entry.groupId) ? 1 : 0) << '\n';
        ++position;
    }
}

void reportCommands(std::ostream& output, const std::function<bool(app::CommandId)>& isBuilt) {
    output << "id\tname\tneedsSelection\tbuilt\n";
    for (const app::Command& command : app::commandTable())
        output << command.id << '\t' << command.name << '\t' << (command.needsSelection ? 1 : 0) << '\t'
               << (isBuilt(command.id) ? 1 : 0) << '\n';
}

}  // namespace inspect
