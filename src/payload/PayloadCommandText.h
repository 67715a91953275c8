#pragma once

#include "app/AppContext.h"
#include "platform/CommandText.h"

#include <QStringView>
#include <filesystem>
#include <span>
#include <string_view>

namespace payload {

/// One kind of embedded data that is written out into files.
struct PayloadExport {
    int box;                    ///< control that chooses it; 0: there is no choice
    std::string_view tag;       ///< as the box and the messages name it
    std::string_view argument;  ///< with its blank
    std::string_view suffix;    ///< of the target, behind the base name of the file
};

/// In the order in which they are written.
std::span<const PayloadExport> thumbnailExports();
const PayloadExport& iccExport();

/// The bytes of one value into a file. The group is left out when it is "System", or there is none. Empty
/// when the name or the group holds more than a tag's name can, since "=" or "<" in it would make the read a
/// write.
platform::CommandText fetchPayloadCommand(const app::AppContext& context, QStringView group, QStringView tag,
                                          const std::filesystem::path& file,
                                          const std::filesystem::path& output);

/// The JPEG becomes the file's thumbnail; see usablePicture for the names that can stand here.
platform::CommandText replaceThumbnailCommand(const app::AppContext& context, app::CommandForm form,
                                              const std::filesystem::path& picture,
                                              const std::filesystem::path& file);
platform::CommandText deleteThumbnailCommand(const app::AppContext& context, app::CommandForm form,
                                             const std::filesystem::path& file);
/// The same as replaceThumbnailCommand for each file of a selection, with a report of its own.
platform::CommandText addThumbnailCommand(const app::AppContext& context, app::CommandForm form,
                                          const std::filesystem::path& picture,
                                          const std::filesystem::path& file);

/// One kind of data of one file into the target, which is emptied in any case.
platform::CommandText exportPayloadCommand(const app::AppContext& context, app::CommandForm form,
                                           const PayloadExport& payload, const std::filesystem::path& file,
                                           const std::filesystem::path& target);

/// Whether ExifTool may read the name of a file that a value is taken from as a pattern: "%d", "%f", "%e" and
/// the like stand for parts of the name of the file that is written, and nothing makes a percent sign plain.
bool isNamePattern(std::string_view path);

}  // namespace payload
