#include "core/speech/edtsummary.h"

#include "core/platform/files.h"
#include "core/speech/edtfile.h"
#include "core/speech/speechtexts.h"

namespace parlex {

EdtSummary summarize(const EdtFile* file, Language language) {
    using speechtexts::Say;
    const auto t = [language](Say key) { return std::string(speechtexts::kTexts(key, language)); };
    const auto bytes = [&](std::uintmax_t n) { return fill(t(Say::Bytes), {std::to_string(n)}); };
    EdtSummary s;
    if (!file) {
        s.kindText = s.countText = s.firstText = s.lastText = s.sizeOnDiskText =
            s.sizeAfterSaveText = "-";
        return s;
    }
    s.kindText = std::string(file->info().summaryText.in(language));
    s.phrases = file->lastPhrase() + 1;
    s.nonEmpty = file->nonEmptyCount();
    s.first = file->firstNonEmpty();
    s.last = file->lastNonEmpty();
    s.sizeAfterSave = file->sizeAfterSave();
    // A new document with nothing typed yet has no count before the bracket; a file
    // read from disk always has one, 0 included.
    const bool noCount = file->isNew() && s.nonEmpty == 0;
    s.countText = (noCount ? std::string() : std::to_string(s.nonEmpty)) + " (" +
                  std::to_string(s.phrases) + ")";
    s.firstText = s.first ? std::to_string(*s.first) : t(Say::None);
    s.lastText = s.last ? std::to_string(*s.last) : t(Say::None);
    if (file->isNew()) {
        s.sizeOnDiskText = t(Say::NotSaved);
    } else if (auto size = platform::fileSize(file->path())) {
        s.sizeOnDisk = *size;
        s.sizeOnDiskText = bytes(*size);
    } else {
        s.sizeOnDiskText = t(Say::NotFound);
    }
    s.sizeAfterSaveText = bytes(s.sizeAfterSave);
    return s;
}

} // namespace parlex
