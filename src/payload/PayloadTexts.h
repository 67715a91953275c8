#pragma once

/// Numbers of the language file's strings about embedded data.
namespace payload::text {

inline constexpr int kPictureTitle = 81500;    ///< "%s" is the tag, then width and height
inline constexpr int kPictureSize = 81501;     ///< width, height, size in bytes
inline constexpr int kPictureReduced = 81502;  ///< the same, of a picture that is shown smaller
inline constexpr int kPictureFailed = 81503;   ///< "%s" is the reason
inline constexpr int kReadingPicture = 81504;
inline constexpr int kReadingStopped = 81505;
inline constexpr int kZoomHint = 81506;
inline constexpr int kCopyRows = 81507;
inline constexpr int kSelectAllRows = 81508;
inline constexpr int kTooMuchToCopy = 81509;  ///< "%s" is the limit
inline constexpr int kSaveValue = 81510;      ///< "%s" is the tag
inline constexpr int kNotSaved = 81511;       ///< the file, the reason
inline constexpr int kChooseThumbnail = 81512;
inline constexpr int kDeleteThumbnail = 81513;  ///< "%s" is the file
inline constexpr int kThumbnailUnchanged = 81514;
inline constexpr int kNoJpeg = 81515;  ///< "%s" is the file
inline constexpr int kEmbedTitle = 81520;
inline constexpr int kEmbedTitleOne = 81521;
inline constexpr int kEmbedProgress = 81522;
inline constexpr int kExportThumbnailsTitle = 81523;
inline constexpr int kExportThumbnailsTitleOne = 81524;
inline constexpr int kExportIccTitle = 81525;
inline constexpr int kExportIccTitleOne = 81526;
inline constexpr int kExportProgress = 81527;
inline constexpr int kChooseExportFolder = 81528;
inline constexpr int kNoSuchFolder = 81529;  ///< "%s" is the folder
inline constexpr int kTargetExists = 81530;  ///< "%s" is the name
inline constexpr int kNothingChosen = 81531;
inline constexpr int kFilesWithoutData = 81532;  ///< number of them, number of all, what

}  // namespace payload::text
