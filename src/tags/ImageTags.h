#pragma once

namespace tags {

/// Whether the hexadecimal view can show this tag's value as a picture: previews, thumbnails, cover art and
/// the like, by TagRecord::id.
bool isImageTag(int tagId);

}  // namespace tags
