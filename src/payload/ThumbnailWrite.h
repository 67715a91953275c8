#pragma once

#include "app/AppContext.h"
#include "exiftool/Outcome.h"
#include "jobs/Job.h"

#include <QString>
#include <filesystem>

/// What the thumbnail dialogs leave to be done. Every write has a safety copy before it when they are on.
namespace payload {

/// The picture under a name that ExifTool takes as it is: in the corrected form a copy in the temp folder,
/// when the picture's own name may be read as a pattern. Empty when the copy cannot be made.
std::filesystem::path usablePicture(const app::AppContext& context, app::CommandForm form,
                                    const std::filesystem::path& picture);

/// Whether the file begins like a JPEG.
bool isJpegFile(const std::filesystem::path& file);

/// The picture becomes the thumbnail of the one file, or the file loses its thumbnail.
jobs::Job replaceThumbnailJob(const QString& title, const std::filesystem::path& picture,
                              const std::filesystem::path& file);
jobs::Job deleteThumbnailJob(const QString& title, const std::filesystem::path& file);

}  // namespace payload
