#pragma once

#include "core/common/error.h"
#include "core/platform/files.h"
#include "core/speech/edtkind.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace parlex {

// The open speech file: its phrases (Windows-1251 characters underneath, UTF-8 at the
// interface) and the phrases as last read, for the change test. Which phrase the
// pane shows is the session's business, not the document's.
class EdtFile {
public:
    // Reads a speech file of the given kind, refusing sizes the kind cannot have.
    static Result<EdtFile> load(const std::filesystem::path& path, EdtKind kind);
    // The phrases of file bytes; whole records only, a shorter rest is ignored.
    static EdtFile fromBytes(std::span<const std::uint8_t> bytes, EdtKind kind,
                             std::filesystem::path path);
    // A new, unsaved document of that kind: all phrases empty.
    static EdtFile makeNew(EdtKind kind);

    // The size test alone: nothing if `size` fits the kind, else the message.
    static std::optional<Error> checkSize(const std::filesystem::path& path, std::uintmax_t size,
                                          EdtKind kind);

    EdtKind kind() const { return kind_; }
    const EdtKindInfo& info() const { return kindInfo(kind_); }
    int lastPhrase() const { return info().lastPhrase; }

    std::string phrase(int index) const; // UTF-8
    const std::string& phraseBytes(int index) const { return phrases_.at(index); }

    // Replaces a phrase. Characters that Windows-1251 cannot hold and control
    // characters are refused, and the phrase stays as it was. A phrase may be longer
    // than the kind's limit here; a save cuts it.
    Result<void> setPhrase(int index, std::string_view utf8);

    bool isChanged() const { return phrases_ != baseline_; }

    // The bytes at the end of the file as read that make no whole phrase of this kind
    // (a file read as another kind than it is): a save would drop them.
    std::size_t bytesLostOnSave() const { return trailingBytes_; }
    // "Файл …: N байт в конце не составляют целой фразы (R байт) и пропадут при
    // сохранении." for such a file.
    std::string lossWarning(Language language = Language::Russian) const;
    bool isNew() const { return isNew_; }
    const std::filesystem::path& path() const { return path_; }
    std::string title() const { return platform::utf8(path_.filename()); }

    std::optional<int> firstNonEmpty() const;
    std::optional<int> lastNonEmpty() const;
    int nonEmptyCount() const;

    // Records a save writes: up to the last non-empty phrase, or lastPhrase records
    // of zeros when every phrase is empty.
    std::size_t recordsToWrite() const;
    std::size_t sizeAfterSave() const { return recordsToWrite() * info().recordSize; }

    // The bytes a save writes, every phrase cut to the kind's limit.
    std::vector<std::uint8_t> toBytes() const;

    // Writes the file (atomically) and reads it back. Phrases over the limit are cut
    // in the document too. A read-only drive is refused with its message.
    Result<void> save();
    Result<void> saveAs(const std::filesystem::path& path);

private:
    EdtKind kind_ = EdtKind::NpcDialogues;
    std::vector<std::string> phrases_; // Windows-1251
    std::vector<std::string> baseline_;
    std::filesystem::path path_;
    bool isNew_ = false;
    std::size_t trailingBytes_ = 0;
};

// Whether phrases written into the file at `path` would destroy a script: it is named
// *.npc (any case), or it has the size of a script and bytes that no speech file holds.
bool looksLikeScript(const std::filesystem::path& path);

} // namespace parlex
