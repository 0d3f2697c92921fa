#pragma once

#include "core/platform/files.h"

#include <QString>
#include <filesystem>

namespace parlex::session {

// A path as the user reads it, and a path from what the user chose: UTF-8 between
// Qt and the file system on every platform (Windows included, where the narrow
// conversions of std::filesystem would garble Cyrillic names).
inline QString pathText(const std::filesystem::path& path) {
    return QString::fromStdString(platform::utf8(path));
}
inline std::filesystem::path pathOf(const QString& text) {
    return platform::pathFromUtf8(text.toStdString());
}

} // namespace parlex::session
