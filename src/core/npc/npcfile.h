#pragma once

#include "core/common/error.h"
#include "core/npc/npcfiletype.h"
#include "core/npc/npcformat.h"
#include "core/npc/npcrecord.h"
#include "core/platform/files.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace parlex {

// The open script: its records, where it came from, and the records as last read
// from disk, against which the change test compares.
class NpcFile {
public:
    // Reads a script. On failure nothing is returned, so the caller's open document
    // (with its path) stays exactly as it was.
    static Result<NpcFile> load(const std::filesystem::path& path);

    // A script made from file bytes; `path` is where they came from.
    static NpcFile fromBytes(const npcformat::FileBytes& bytes, std::filesystem::path path);

    // A new, unsaved document: 50 empty records of the "ub" layout.
    static NpcFile makeNew();

    NpcFileType type() const { return type_; }
    std::size_t recordCount() const { return records_.size(); }
    const std::vector<NpcRecord>& records() const { return records_; }

    // Position 1-50 as the slider counts; a "ja" script has no record at 50.
    bool hasRecordAt(int position) const;
    // The record at a position, or null where the position has none.
    const NpcRecord* recordAt(int position) const;
    const NpcRecord& record(std::size_t index) const { return records_.at(index); }
    // The only way a record changes. The number of records never does.
    void setRecord(std::size_t index, const NpcRecord& record) { records_.at(index) = record; }

    // Positions (1-50) of the first and the last record that is not empty.
    std::optional<int> firstNonEmptyPosition() const;
    std::optional<int> lastNonEmptyPosition() const;

    // Changed exactly when the records differ from those of the last load; the tail
    // of a "ja" file is not part of the test.
    bool isChanged() const { return records_ != baseline_; }
    bool isNew() const { return isNew_; }

    const std::filesystem::path& path() const { return path_; }
    std::string title() const { return platform::utf8(path_.filename()); }

    // "Записи <given> в файле нет: записи с 1 по <count>.": a position outside the file.
    std::string positionRefusal(std::string_view given,
                                Language language = Language::Russian) const;

    std::size_t nonEmptyCount() const;
    std::string summary(Language language = Language::Russian) const {
        return layoutSummary(type_, nonEmptyCount(), language);
    }

    // The 1600 bytes a save writes. The layout follows the number of records: 49
    // records get the "ja" mark in front and a zero tail behind.
    npcformat::FileBytes toBytes() const;

    // How a save of this document has to go.
    enum class SaveRoute {
        InPlace,       // its own file
        AskForName,    // a new document, or one whose file is gone
        ReadOnlyDrive, // its file lies on a read-only drive: say so, then ask for a name
    };
    SaveRoute saveRoute() const;

    // Writes the document to its own file, then reads it back from disk.
    Result<void> save();

    // Writes the document to `path` (atomically), then reads it back from there: the
    // layout may change with it, as the first four bytes decide. A read-only drive is
    // refused with its message; on failure the document stays as it was, still changed.
    Result<void> saveAs(const std::filesystem::path& path);

private:
    NpcFileType type_ = NpcFileType::Ub;
    std::vector<NpcRecord> records_;
    std::vector<NpcRecord> baseline_;
    std::filesystem::path path_;
    bool isNew_ = false;
};

// The copied record. It is no part of any document, so it outlives loads and can
// carry a record from one script into another.
class RecordBuffer {
public:
    void copy(const NpcRecord& record) { record_ = record; }
    bool isFilled() const { return record_.has_value(); }
    const std::optional<NpcRecord>& record() const { return record_; }
    void clear() { record_.reset(); }

private:
    std::optional<NpcRecord> record_;
};

} // namespace parlex
