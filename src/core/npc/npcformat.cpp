#include "core/npc/npcformat.h"

#include "core/platform/files.h"

#include <algorithm>

namespace parlex::npcformat {

NpcFileType detectType(std::span<const std::uint8_t> bytes) {
    if (bytes.size() >= kJaMark.size() && std::equal(kJaMark.begin(), kJaMark.end(), bytes.begin()))
        return NpcFileType::Ja;
    return NpcFileType::Ub;
}

using npctexts::kTexts;
using npctexts::Say;

std::string sizeRefusal(std::string_view pathText, std::uintmax_t size, Language language) {
    return fill(kTexts(size < kFileSize ? Say::SizeSmaller : Say::SizeLarger, language),
                {pathText, std::to_string(kFileSize)});
}

namespace {

Said sizeRefusalInEach(const std::filesystem::path& path, std::uintmax_t size) {
    return inEach([&](Language l) { return sizeRefusal(platform::utf8(path), size, l); });
}

} // namespace

Result<FileBytes> readScript(const std::filesystem::path& path) {
    auto size = platform::fileSize(path);
    if (!size)
        return std::unexpected(size.error());
    if (*size != kFileSize)
        return fail(*size < kFileSize ? ErrorKind::TooSmall : ErrorKind::TooLarge,
                    sizeRefusalInEach(path, *size));
    auto data = platform::readFile(path);
    if (!data)
        return std::unexpected(data.error());
    if (data->size() != kFileSize) // the file changed between the two looks
        return fail(ErrorKind::Read, sizeRefusalInEach(path, data->size()));
    FileBytes bytes;
    std::copy(data->begin(), data->end(), bytes.begin());
    return bytes;
}

Result<void> checkConversion(NpcFileType from, NpcFileType to) {
    if (from == to)
        return fail(ErrorKind::Invalid, say(kTexts[Say::AlreadyType],
                                            {Said(std::string(typeText(to)),
                                                  std::string(typeText(to, Language::English)))}));
    return {};
}

Result<FileBytes> convertLayout(const FileBytes& source, NpcFileType target) {
    if (auto allowed = checkConversion(detectType(source), target); !allowed)
        return std::unexpected(allowed.error());
    FileBytes out{};
    if (target == NpcFileType::Ub) {
        std::copy(source.begin() + kJaHeaderSize, source.end(), out.begin());
    } else {
        std::copy(kJaMark.begin(), kJaMark.end(), out.begin());
        std::copy(source.begin(), source.end() - kJaHeaderSize, out.begin() + kJaHeaderSize);
    }
    return out;
}

std::optional<std::string> conversionLoss(const FileBytes& source, NpcFileType target,
                                          Language language) {
    const NpcFileType from = detectType(source);
    // The layout is told by the first four bytes alone: a "ub" file that begins with
    // the mark is taken for "ja".
    if (from == NpcFileType::Ja && target == NpcFileType::Ub &&
        std::equal(kJaMark.begin(), kJaMark.end(), source.begin() + kJaHeaderSize))
        return std::string(kTexts(Say::MarkInRecordOne, language));
    if (target != NpcFileType::Ja || from != NpcFileType::Ub)
        return std::nullopt;
    NpcRecord last{};
    std::copy_n(source.begin() + recordOffset(NpcFileType::Ub, 49), kRecordSize, last.begin());
    if (isEmptyRecord(last))
        return std::nullopt;
    return std::string(kTexts(Say::RecordFiftyLost, language));
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
