#pragma once

// Answers the program's questions from a script and remembers what it was shown.
#include "session/userprompts.h"

#include <deque>

namespace testutil {

using parlex::session::UserPrompts;

class ScriptedPrompts : public UserPrompts {
public:
    struct Shown {
        Icon icon;
        QString title, text;
    };
    std::vector<Shown> messages;
    std::vector<QString> questions;
    std::vector<bool> withCancel; // for each question: Yes / No / Cancel or Yes / No
    std::vector<FileRequest> requests;
    std::deque<Answer> answers;
    std::deque<std::optional<FileChoice>> files;
    int beeps = 0;
    int unexpected = 0; // questions or dialogs the script had no answer for

    void message(Icon icon, const QString& title, const QString& text) override {
        messages.push_back({icon, title, text});
    }
    Answer question(const QString&, const QString& text, bool cancel) override {
        questions.push_back(text);
        withCancel.push_back(cancel);
        if (answers.empty()) {
            ++unexpected;
            return Answer::Cancel;
        }
        const Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    std::optional<FileChoice> openFile(const FileRequest& request) override {
        return next(request);
    }
    std::optional<FileChoice> saveFile(const FileRequest& request) override {
        return next(request);
    }
    void about(const QString& title, const QString& text) override {
        messages.push_back({Icon::Information, title, text});
    }
    void beep() override { ++beeps; }
    // The colour and font dialogs answer from these; nothing there is a cancel.
    std::optional<unsigned> colourAnswer;
    std::optional<parlex::TextFont> fontAnswer;
    std::vector<std::pair<double, double>> fontLimits; // of each font dialog shown
    std::optional<unsigned> chooseColour(unsigned) override { return colourAnswer; }
    std::optional<parlex::TextFont> chooseFont(const parlex::TextFont&, double minSize,
                                               double maxSize) override {
        fontLimits.emplace_back(minSize, maxSize);
        return fontAnswer;
    }

    void choose(const QString& path, int filterIndex = 1) {
        files.push_back(FileChoice{path, filterIndex});
    }
    void cancelDialog() { files.push_back(std::nullopt); }

private:
    std::optional<FileChoice> next(const FileRequest& request) {
        requests.push_back(request);
        if (files.empty()) {
            ++unexpected;
            return std::nullopt;
        }
        std::optional<FileChoice> chosen;
        chosen.swap(files.front());
        files.pop_front();
        return chosen;
    }
};

} // namespace testutil
