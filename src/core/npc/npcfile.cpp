#include "core/npc/npcfile.h"

#include "core/platform/files.h"

#include <algorithm>

namespace parlex {

Result<NpcFile> NpcFile::load(const std::filesystem::path& path) {
    auto bytes = npcformat::readScript(path);
    if (!bytes)
        return std::unexpected(bytes.error());
    return fromBytes(*bytes, path);
}

NpcFile NpcFile::fromBytes(const npcformat::FileBytes& bytes, std::filesystem::path path) {
    NpcFile file;
    file.type_ = npcformat::detectType(bytes);
    file.records_.resize(parlex::recordCount(file.type_));
    for (std::size_t i = 0; i < file.records_.size(); ++i) {
        const auto offset = npcformat::recordOffset(file.type_, i);
        std::copy_n(bytes.begin() + offset, kRecordSize, file.records_[i].begin());
    }
    file.baseline_ = file.records_;
    file.path_ = std::move(path);
    return file;
}

NpcFile NpcFile::makeNew() {
    NpcFile file;
    file.records_.assign(parlex::recordCount(NpcFileType::Ub), kEmptyRecord);
    file.baseline_ = file.records_;
    file.isNew_ = true;
    return file;
}

bool NpcFile::hasRecordAt(int position) const {
    return position >= 1 && static_cast<std::size_t>(position) <= records_.size();
}

const NpcRecord* NpcFile::recordAt(int position) const {
    return hasRecordAt(position) ? &records_[static_cast<std::size_t>(position - 1)] : nullptr;
}

std::optional<int> NpcFile::firstNonEmptyPosition() const {
    const auto it = std::find_if(records_.begin(), records_.end(),
                                 [](const NpcRecord& r) { return !isEmptyRecord(r); });
    if (it == records_.end())
        return std::nullopt;
    return static_cast<int>(it - records_.begin()) + 1;
}

std::optional<int> NpcFile::lastNonEmptyPosition() const {
    const auto it = std::find_if(records_.rbegin(), records_.rend(),
                                 [](const NpcRecord& r) { return !isEmptyRecord(r); });
    if (it == records_.rend())
        return std::nullopt;
    return static_cast<int>(records_.rend() - it);
}

std::string NpcFile::positionRefusal(std::string_view given, Language language) const {
    return fill(npctexts::kTexts(npctexts::Say::NoSuchRecord, language),
                {given, std::to_string(records_.size())});
}

std::size_t NpcFile::nonEmptyCount() const {
    return static_cast<std::size_t>(std::count_if(
        records_.begin(), records_.end(), [](const NpcRecord& r) { return !isEmptyRecord(r); }));
}

npcformat::FileBytes NpcFile::toBytes() const {
    npcformat::FileBytes bytes{};
    const NpcFileType layout = records_.size() == kUbRecords ? NpcFileType::Ub : NpcFileType::Ja;
    if (layout == NpcFileType::Ja)
        std::copy(npcformat::kJaMark.begin(), npcformat::kJaMark.end(), bytes.begin());
    for (std::size_t i = 0; i < records_.size(); ++i)
        std::copy(records_[i].begin(), records_[i].end(),
                  bytes.begin() + npcformat::recordOffset(layout, i));
    return bytes;
}

NpcFile::SaveRoute NpcFile::saveRoute() const {
    if (isNew_ || path_.empty())
        return SaveRoute::AskForName;
    if (platform::driveKind(path_) == platform::DriveKind::ReadOnly)
        return SaveRoute::ReadOnlyDrive;
    if (!platform::fileExists(path_))
        return SaveRoute::AskForName;
    return SaveRoute::InPlace;
}

Result<void> NpcFile::save() {
    switch (saveRoute()) {
    case SaveRoute::InPlace:
        return saveAs(path_);
    case SaveRoute::ReadOnlyDrive:
        return std::unexpected(platform::readOnlyDriveError(path_, true));
    case SaveRoute::AskForName:
        break;
    }
    if (isNew_ || path_.empty())
        return fail(ErrorKind::NotFound, say(npctexts::kTexts[npctexts::Say::NotSavedYet]));
    return fail(ErrorKind::NotFound,
                say(npctexts::kTexts[npctexts::Say::NotFound], {platform::utf8(path_)}));
}

Result<void> NpcFile::saveAs(const std::filesystem::path& path) {
    if (platform::driveKind(path) == platform::DriveKind::ReadOnly)
        return std::unexpected(platform::readOnlyDriveError(path, true));
    if (auto written = platform::writeFileAtomic(path, toBytes()); !written)
        return written;
    // Show what the disk now holds: read the file back.
    auto reloaded = load(path);
    if (!reloaded)
        return std::unexpected(reloaded.error());
    *this = std::move(*reloaded);
    return {};
}

} // namespace parlex
