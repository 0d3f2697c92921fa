#include "session/session.h"

#include "session/commandline.h"

namespace parlex::session {

Session::Session(UserPrompts& prompts, std::filesystem::path programDir, QObject* parent)
    : QObject(parent), prompts_(prompts), programDir_(std::move(programDir)),
      lists_(prompts, programDir_), speech_(prompts, options_, programDir_),
      disk_(prompts, document_), cursor_(document_, lists_.lists(), options_, speech_, prompts),
      flows_(prompts, document_, disk_, speech_, programDir_) {
    connect(&disk_, &DiskWatch::reloadWanted, this, [this] { flows_.reload(); });
}

// ---------------------------------------------------------------- options

void Session::setOptions(const Options& options) {
    if (options == options_)
        return;
    options_ = options;
    emit optionsChanged();
}

void Session::updateOptions(const std::function<void(Options&)>& change) {
    Options changed = options_;
    change(changed);
    setOptions(changed);
}

void Session::choosePhraseColour() {
    if (const auto colour = prompts_.chooseColour(options_.phraseBackColour))
        updateOptions([&](Options& o) { o.phraseBackColour = *colour & 0xFFFFFFu; });
}

void Session::choosePhraseFont() {
    if (const auto font = prompts_.chooseFont(options_.phraseFont, 4, 18))
        updateOptions([&](Options& o) { o.phraseFont = *font; });
}

void Session::restore(const Settings& settings) {
    options_ = settings.options;
    if (!settings.scriptPath.empty())
        flows_.setLastPath(platform::pathFromUtf8(settings.scriptPath));
    if (!settings.speechPath.empty())
        speech_.setRememberedPath(platform::pathFromUtf8(settings.speechPath));
    emit optionsChanged();
}

Settings Session::remembered(Settings base) const {
    base.options = options_;
    base.scriptPath = platform::utf8(flows_.lastPath());
    base.speechPath = platform::utf8(speech_.rememberedPath());
    return base;
}

// ---------------------------------------------------------------- start and end

bool Session::start(const QStringList& arguments, const QString& programName) {
    return runCommandLine(arguments, programName, prompts_,
                          [this](const std::filesystem::path& path) { flows_.openPath(path); });
}

bool Session::queryClose() {
    return speech_.askSave() && flows_.askSave();
}

void Session::shutdown() {
    document_.clear();
    disk_.stop();
}

// ---------------------------------------------------------------- edits at the cursor

void Session::deleteRecord(bool standard) {
    if (cursor_.currentRecord())
        document_.wipe(cursor_.recordIndex(), standard);
}

void Session::copyRecord() {
    if (cursor_.currentRecord())
        document_.copy(cursor_.recordIndex());
}

void Session::pasteRecord() {
    if (cursor_.currentRecord())
        document_.paste(cursor_.recordIndex());
}

void Session::undo() {
    if (const auto index = document_.undo())
        cursor_.setPosition(static_cast<int>(*index) + 1);
}

void Session::redo() {
    if (const auto index = document_.redo())
        cursor_.setPosition(static_cast<int>(*index) + 1);
}

} // namespace parlex::session
