#include "core/speech/edtfile.h"

#include "core/npc/npcformat.h"
#include "core/platform/files.h"
#include "core/speech/phrasecodec.h"
#include "core/speech/speechtexts.h"
#include "core/text/cp1251.h"

#include <algorithm>

namespace parlex {

using speechtexts::kTexts;
using speechtexts::Say;

std::optional<Error> EdtFile::checkSize(const std::filesystem::path& path, std::uintmax_t size,
                                        EdtKind kind) {
    const EdtKindInfo& k = kindInfo(kind);
    const Said title = say(kTexts[Say::BadSizeTitle], {kMessageTitle});
    const Said kindLine(std::string(k.kindLine.ru), std::string(k.kindLine.en));
    if (size < k.smallestFile())
        return Error::said(ErrorKind::TooSmall,
                           say(kTexts[Say::TooSmall],
                               {platform::utf8(path), kindLine, std::to_string(k.smallestFile())}),
                           title);
    if (size > k.largestFile()) {
        Said message = say(kTexts[Say::TooLarge],
                           {platform::utf8(path), kindLine, std::to_string(k.largestFile())});
        if (!k.limitLine.ru.empty())
            message += Said("\n" + std::string(k.limitLine.ru), "\n" + std::string(k.limitLine.en));
        return Error::said(ErrorKind::TooLarge, message, title);
    }
    return std::nullopt;
}

Result<EdtFile> EdtFile::load(const std::filesystem::path& path, EdtKind kind) {
    auto size = platform::fileSize(path);
    if (!size)
        return std::unexpected(size.error());
    if (auto refused = checkSize(path, *size, kind))
        return std::unexpected(*refused);
    auto data = platform::readFile(path);
    if (!data)
        return std::unexpected(data.error());
    if (auto refused = checkSize(path, data->size(), kind)) // changed since the first look
        return std::unexpected(*refused);
    return fromBytes(*data, kind, path);
}

EdtFile EdtFile::fromBytes(std::span<const std::uint8_t> bytes, EdtKind kind,
                           std::filesystem::path path) {
    EdtFile file;
    file.kind_ = kind;
    const EdtKindInfo& k = kindInfo(kind);
    file.phrases_.assign(k.phraseCount(), std::string());
    const std::size_t records = std::min(bytes.size() / k.recordSize, k.phraseCount());
    for (std::size_t i = 0; i < records; ++i)
        file.phrases_[i] = phrasecodec::decode(bytes.subspan(i * k.recordSize, k.recordSize));
    file.baseline_ = file.phrases_;
    file.path_ = std::move(path);
    file.trailingBytes_ = bytes.size() - records * k.recordSize;
    return file;
}

EdtFile EdtFile::makeNew(EdtKind kind) {
    EdtFile file;
    file.kind_ = kind;
    file.phrases_.assign(kindInfo(kind).phraseCount(), std::string());
    file.baseline_ = file.phrases_;
    file.isNew_ = true;
    return file;
}

std::string EdtFile::phrase(int index) const {
    return text::cp1251ToUtf8(phrases_.at(index));
}

std::string EdtFile::lossWarning(Language language) const {
    return fill(kTexts(Say::Loss, language), {platform::utf8(path_), std::to_string(trailingBytes_),
                                              std::to_string(info().recordSize)});
}

Result<void> EdtFile::setPhrase(int index, std::string_view utf8) {
    if (index < 0 || index > lastPhrase())
        return fail(ErrorKind::Invalid, say(kTexts[Say::NoSuchPhrase],
                                            {std::to_string(index), std::to_string(lastPhrase())}));
    auto bytes = text::utf8ToCp1251(utf8);
    if (!bytes)
        return std::unexpected(bytes.error());
    // C0 controls, DEL, and 0x98: the one byte of the code page that decodes to a C1
    // control (U+0098); the other C1 controls have no byte at all.
    if (std::any_of(bytes->begin(), bytes->end(), [](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return byte < 0x20 || byte == 0x7F || byte == 0x98;
        }))
        return fail(ErrorKind::Invalid, say(kTexts[Say::ControlCharacters]));
    phrases_[index] = std::move(*bytes);
    return {};
}

std::optional<int> EdtFile::firstNonEmpty() const {
    for (std::size_t i = 0; i < phrases_.size(); ++i)
        if (!phrases_[i].empty())
            return static_cast<int>(i);
    return std::nullopt;
}

std::optional<int> EdtFile::lastNonEmpty() const {
    for (std::size_t i = phrases_.size(); i-- > 0;)
        if (!phrases_[i].empty())
            return static_cast<int>(i);
    return std::nullopt;
}

int EdtFile::nonEmptyCount() const {
    return static_cast<int>(std::count_if(phrases_.begin(), phrases_.end(),
                                          [](const std::string& p) { return !p.empty(); }));
}

std::size_t EdtFile::recordsToWrite() const {
    const auto last = lastNonEmpty();
    return last ? static_cast<std::size_t>(*last) + 1 : static_cast<std::size_t>(lastPhrase());
}

std::vector<std::uint8_t> EdtFile::toBytes() const {
    const std::size_t recordSize = info().recordSize;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(recordsToWrite() * recordSize);
    for (std::size_t i = 0; i < recordsToWrite(); ++i) {
        const auto record = phrasecodec::encode(phrases_[i], recordSize);
        bytes.insert(bytes.end(), record.begin(), record.end());
    }
    return bytes;
}

Result<void> EdtFile::save() {
    if (isNew_ || path_.empty())
        return fail(ErrorKind::NotFound, say(kTexts[Say::NotSavedYet]));
    return saveAs(path_);
}

Result<void> EdtFile::saveAs(const std::filesystem::path& path) {
    if (platform::driveKind(path) == platform::DriveKind::ReadOnly)
        return std::unexpected(platform::readOnlyDriveError(path, true));
    for (auto& p : phrases_)
        if (p.size() > info().textLimit)
            p.resize(info().textLimit);
    if (auto written = platform::writeFileAtomic(path, toBytes()); !written)
        return written;
    auto reloaded = load(path, kind_);
    if (!reloaded)
        return std::unexpected(reloaded.error());
    *this = std::move(*reloaded);
    return {};
}

bool looksLikeScript(const std::filesystem::path& path) {
    if (platform::lowerExtension(path) == ".npc")
        return true;
    const auto bytes = npcformat::readScript(path);
    return bytes && !phrasecodec::couldBePhrases(*bytes);
}

} // namespace parlex
