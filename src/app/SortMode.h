#pragma once

#include "app/NumberedNames.h"

namespace app {

/// What the file list is sorted or grouped by. The numbers are what the settings file holds, and what the
/// sort commands add to 50000 and the group commands to 50100; 19, 20, 28 and 34 are unassigned.
enum class SortMode {
    Name = 1,
    DateModified = 2,
    Size = 3,
    Type = 4,
    TotalSize = 5,
    FreeSpace = 6,
    Comments = 7,
    DateDeleted = 8,
    OriginalLocation = 9,
    Attributes = 10,
    RealSize = 11,
    Owner = 12,
    Rating = 13,
    ProductName = 14,
    Company = 15,
    Description = 16,
    FileVersion = 17,
    ProductVersion = 18,
    Extension = 21,
    Created = 22,
    Accessed = 23,
    Title = 24,
    Subject = 25,
    Authors = 26,
    Keywords = 27,
    CameraModel = 29,
    DateTaken = 30,
    Width = 31,
    Height = 32,
    VirtualComments = 33,
    MediaBitrate = 35,
    MediaCopyright = 36,
    MediaDuration = 37,
    MediaProtected = 38,
    MediaRating = 39,
    MediaAlbumArtist = 40,
    MediaAlbum = 41,
    MediaBeatsPerMinute = 42,
    MediaComposer = 43,
    MediaConductor = 44,
    MediaDirector = 45,
    MediaGenre = 46,
    MediaLanguage = 47,
    MediaBroadcastDate = 48,
    MediaChannel = 49,
    MediaStationName = 50,
    MediaMood = 51,
    MediaParentalRating = 52,
    MediaParentalRatingReason = 53,
    MediaPeriod = 54,
    MediaProducer = 55,
    MediaPublisher = 56,
    MediaWriter = 57,
    MediaYear = 58,
    Kind = 59,
};

/// All values, in the order of their numbers.
std::span<const NumberedName> sortModes();

/// Throws InvalidEnumeration with "SortMode::_from_integral: invalid argument" for any other number.
SortMode sortModeFromIntegral(int number);
/// Throws InvalidEnumeration with "SortMode::_from_string: invalid argument" for any other text.
SortMode sortModeFromString(const QString& name);
QString toString(SortMode mode);

}  // namespace app
