#include "session/diskwatch.h"

#include "session/pathtext.h"
#include "session/scriptdocument.h"

#include <QDir>

namespace parlex::session {

DiskWatch::DiskWatch(UserPrompts& prompts, const ScriptDocument& document, QObject* parent)
    : QObject(parent), prompts_(prompts), document_(document) {
    connect(&document_, &ScriptDocument::replaced, this, &DiskWatch::follow);
    // Queued: the check may reload the script, which changes what is watched.
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &DiskWatch::check,
            Qt::QueuedConnection);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &DiskWatch::check,
            Qt::QueuedConnection);
}

bool DiskWatch::changedSinceLoad() const {
    const NpcFile* npc = document_.file();
    if (!npc || npc->isNew())
        return false;
    const auto now = platform::fileStatus(npc->path());
    return now && loadedStatus_ && *now != *loadedStatus_;
}

void DiskWatch::acknowledge() {
    const NpcFile* npc = document_.file();
    loadedStatus_ = seenStatus_ =
        npc && !npc->isNew() ? platform::fileStatus(npc->path()) : std::nullopt;
}

void DiskWatch::stop() {
    const QStringList watched = watcher_.files() + watcher_.directories();
    if (!watched.isEmpty())
        watcher_.removePaths(watched);
}

void DiskWatch::follow() {
    stop();
    acknowledge();
    const NpcFile* npc = document_.file();
    if (!npc || npc->isNew())
        return;
    // The folder too: a file replaced by renaming another over it drops out of a
    // plain file watch.
    const auto folder = npc->path().parent_path();
    watcher_.addPath(QDir::cleanPath(pathText(folder.empty() ? "." : folder)));
    if (platform::fileExists(npc->path()))
        watcher_.addPath(pathText(npc->path()));
}

void DiskWatch::check() {
    const NpcFile* npc = document_.file();
    if (!npc || npc->isNew() || checking_)
        return;
    const QString path = pathText(npc->path());
    const auto now = platform::fileStatus(npc->path());
    if (now && !watcher_.files().contains(path))
        watcher_.addPath(path);
    if (now == seenStatus_)
        return;
    seenStatus_ = now;
    checking_ = true;
    const QString title = QString::fromUtf8(kMessageTitle);
    if (!now) {
        prompts_.message(UserPrompts::Icon::Information, title,
                         tr("Файл\n%1\nудалён или переименован другой программой.\n"
                            "При сохранении будет предложено указать имя файла.")
                             .arg(path));
    } else if (now != loadedStatus_) {
        const QString text =
            npc->isChanged()
                ? tr("Файл\n%1\nизменён другой программой.\nЗагрузить его заново? "
                     "Изменения, сделанные в редакторе, будут потеряны.")
                      .arg(path)
                : tr("Файл\n%1\nизменён другой программой.\nЗагрузить его заново?").arg(path);
        if (prompts_.question(title, text, false) == UserPrompts::Answer::Yes)
            emit reloadWanted();
    }
    checking_ = false;
}

} // namespace parlex::session
