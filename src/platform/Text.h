#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>
#include <string>

namespace platform {

/// The path's own bytes, which are UTF-8 on nearly every system but need not be. What command lines carry.
std::string narrow(const std::filesystem::path& path);

/// The path as it is shown to people: bytes that are no UTF-8 become replacement characters. Never used to
/// open.
QString display(const std::filesystem::path& path);

/// The path that the user typed or a settings file holds.
std::filesystem::path pathFromText(const QString& text);

std::string narrow(const QString& text);
QString wide(std::string_view utf8);

}  // namespace platform
