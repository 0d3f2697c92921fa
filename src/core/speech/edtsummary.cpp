#include "speech/edtsummary.h"

#include "platform/files.h"
#include "speech/edtfile.h"

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
    // The window leaves the count out when no phrase is filled.
    s.countText = (s.nonEmpty ? std::to_string(s.nonEmpty) : std::string()) + " (" +
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
