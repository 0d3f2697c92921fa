#include "npc/npcformat.h"

#include "platform/files.h"

#include <algorithm>

namespace parlex::npcformat {

NpcFileType detectType(std::span<const std::uint8_t> bytes) {
    if (bytes.size() >= kJaMark.size() && std::equal(kJaMark.begin(), kJaMark.end(), bytes.begin()))
        return NpcFileType::Ja;
    return NpcFileType::Ub;
}

Result<FileBytes> readScript(const std::filesystem::path& path) {
    auto size = platform::fileSize(path);
    if (!size)
        return std::unexpected(size.error());
    if (*size != kFileSize)
        return fail(*size < kFileSize ? ErrorKind::TooSmall : ErrorKind::TooLarge,
                    "Размер файла " + path.string() + "\n" +
                        (*size < kFileSize ? "меньше" : "больше") + " чем 1600 байт");
    auto data = platform::readFile(path);
    if (!data)
        return std::unexpected(data.error());
    if (data->size() != kFileSize) // the file changed between the two looks
        return fail(ErrorKind::Read, "Размер файла " + path.string() + "\n" +
                                         (data->size() < kFileSize ? "меньше" : "больше") +
                                         " чем 1600 байт");
    FileBytes bytes;
    std::copy(data->begin(), data->end(), bytes.begin());
    return bytes;
}

Result<FileBytes> convertLayout(const FileBytes& source, NpcFileType target) {
    const NpcFileType sourceType = detectType(source);
    if (sourceType == target)
        return fail(ErrorKind::Invalid, std::string("Файл уже имеет тип \"") +
                                            std::string(typeText(target)) +
                                            "\".\nПреобразовывать нечего: выберите другой тип.");
    FileBytes out{};
    if (target == NpcFileType::Ub) {
        std::copy(source.begin() + kJaHeaderSize, source.end(), out.begin());
    } else {
        std::copy(kJaMark.begin(), kJaMark.end(), out.begin());
        std::copy(source.begin(), source.end() - kJaHeaderSize, out.begin() + kJaHeaderSize);
    }
    return out;
}

Result<NpcFileType> convertFile(const std::filesystem::path& source,
                                const std::filesystem::path& target, NpcFileType targetType) {
    auto bytes = readScript(source);
    if (!bytes)
        return std::unexpected(bytes.error());
    auto converted = convertLayout(*bytes, targetType);
    if (!converted)
        return std::unexpected(converted.error());
    if (platform::driveKind(target) == platform::DriveKind::ReadOnly)
        return std::unexpected(platform::readOnlyDriveError(target, true));
    if (auto written = platform::writeFileAtomic(target, *converted); !written)
        return std::unexpected(written.error());
    return detectType(*bytes);
}

} // namespace parlex::npcformat
