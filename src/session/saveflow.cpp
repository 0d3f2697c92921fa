#include "session/saveflow.h"

namespace parlex::session {

bool askToSave(UserPrompts& prompts, const QString& question, const std::function<bool()>& save) {
    switch (prompts.question(QString::fromUtf8(kMessageTitle), question, true)) {
    case UserPrompts::Answer::Cancel:
        return false;
    case UserPrompts::Answer::No:
        return true;
    case UserPrompts::Answer::Yes:
        break;
    }
    return save();
}

} // namespace parlex::session
