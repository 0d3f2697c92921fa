#pragma once

#include "session/userprompts.h"

#include <QString>
#include <filesystem>
#include <functional>
#include <optional>

namespace parlex::session {

// The question before a changed document is replaced or closed ("Сохранть ...?",
// with Cancel), shared by the script and the speech file. Yes runs `save`; a save
// that did not happen stops the flow that asked, so that the changes are not thrown
// away with the document. True: the flow may go on.
bool askToSave(UserPrompts& prompts, const QString& question, const std::function<bool()>& save);

// Writes a copy of `document` to `path` and hands it back as written (its new path,
// nothing changed), so that what is shown is what the disk holds. A failure is told
// to the user and gives nothing; the document itself stays as it was.
template <class Document>
std::optional<Document> writeCopy(UserPrompts& prompts, const Document& document,
                                  const std::filesystem::path& path) {
    Document saved = document;
    if (auto written = saved.saveAs(path); !written) {
        prompts.tell(written.error());
        return std::nullopt;
    }
    return saved;
}

} // namespace parlex::session
