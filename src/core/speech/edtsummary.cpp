#include "core/speech/edtsummary.h"

#include "core/platform/files.h"
#include "core/speech/edtfile.h"

namespace parlex {

EdtSummary summarize(const EdtFile* file) {
    EdtSummary s;
    if (!file) {
        s.kindText = s.countText = s.firstText = s.lastText = s.sizeOnDiskText =
            s.sizeAfterSaveText = "-";
        return s;
    }
    s.kindText = std::string(file->info().summaryText);
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
    s.firstText = s.first ? std::to_string(*s.first) : "Нет";
    s.lastText = s.last ? std::to_string(*s.last) : "Нет";
    if (file->isNew()) {
        s.sizeOnDiskText = "Файл не сохранен";
    } else if (auto size = platform::fileSize(file->path())) {
        s.sizeOnDisk = *size;
        s.sizeOnDiskText = std::to_string(*size) + " байт";
    } else {
        s.sizeOnDiskText = "Файл не найден";
    }
    s.sizeAfterSaveText = std::to_string(s.sizeAfterSave) + " байт";
    return s;
}

} // namespace parlex
