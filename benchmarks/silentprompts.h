#pragma once

// Prompts that answer No and Cancel to everything and show nothing: a session run by
// a benchmark never waits for a user.
#include "session/userprompts.h"

namespace benchutil {

class SilentPrompts : public parlex::session::UserPrompts {
public:
    void message(Icon, const QString&, const QString&) override {}
    Answer question(const QString&, const QString&, bool) override { return Answer::No; }
    std::optional<FileChoice> openFile(const FileRequest&) override { return std::nullopt; }
    std::optional<FileChoice> saveFile(const FileRequest&) override { return std::nullopt; }
    void about(const QString&, const QString&) override {}
    void beep() override {}
    std::optional<unsigned> chooseColour(unsigned) override { return std::nullopt; }
    std::optional<parlex::TextFont> chooseFont(const parlex::TextFont&, double, double) override {
        return std::nullopt;
    }
};

} // namespace benchutil
