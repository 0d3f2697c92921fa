#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>
#include <functional>

namespace parlex::session {

class UserPrompts;

// The words of the program's command line (without its name). They are one whole
// path, blanks and all: a script of the right size is handed to `open`, one of
// another size is refused with a message. A help switch shows the usage and returns
// false: the program is to end at once.
bool runCommandLine(const QStringList& arguments, const QString& programName, UserPrompts& prompts,
                    const std::function<void(const std::filesystem::path&)>& open);

} // namespace parlex::session
