#include "core/codelists/listwriter.h"

#include "core/codelists/listtexts.h"
#include "core/platform/files.h"
#include "core/text/cp1251.h"

#include <cstdio>

namespace parlex {
namespace {

std::string dateText(const std::tm& t) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%02d.%02d.%04d %02d:%02d:%02d", t.tm_mday, t.tm_mon + 1,
                  t.tm_year + 1900, t.tm_hour, t.tm_min, t.tm_sec);
    return buffer;
}

} // namespace

std::string listFileText(ListKey key, const std::filesystem::path& path, const std::tm& now,
                         Language language) {
    std::string out = "; " + platform::utf8(path) + " Greated: " + dateText(now) + "\r\n" +
                      std::string(listtexts::kTexts(listtexts::Say::FileHeader, language)) + "\r\n";
    for (auto code : builtInCodes(key))
        out += std::to_string(code) + "=" + textOrUnknown(builtInText(key, code)) + "\r\n";
    return out;
}

Result<std::filesystem::path> writeListFile(ListKey key, const std::filesystem::path& folder,
                                            const std::tm& now, bool replace, Language language) {
    std::error_code ec;
    const auto absolute = std::filesystem::absolute(folder, ec);
    const auto path = (ec ? folder : absolute) / std::string(codeList(key).overrideFile);
    if (platform::driveKind(folder) == platform::DriveKind::ReadOnly)
        return std::unexpected(platform::readOnlyDriveError(folder, false));
    if (!replace && platform::fileExists(path))
        return fail(ErrorKind::Exists,
                    say(listtexts::kTexts[listtexts::Say::Exists], {platform::utf8(path)}));
    std::filesystem::create_directories(path.parent_path(), ec); // a failure shows in the write
    auto bytes = text::utf8ToCp1251(listFileText(key, path, now, language));
    if (!bytes)
        return std::unexpected(bytes.error());
    if (auto written = platform::writeFileAtomic(path, *bytes); !written)
        return std::unexpected(written.error());
    return path;
}

} // namespace parlex
