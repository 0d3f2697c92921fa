#pragma once

#include "core/common/error.h"
#include "core/settings/options.h"

#include <QString>
#include <QStringList>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace parlex::session {

// Every question and message the program puts to the user goes through here, so
// that the flows can be driven by a script in tests.
class UserPrompts {
public:
    enum class Icon { Information, Exclamation, Critical, Question };
    enum class Answer { Yes, No, Cancel };

    struct Filter {
        QString text;    // what the user reads: "*.npc", "все файлы (*.*)"
        QString pattern; // what it matches: "*.npc", "*"
        // The extension a name typed without one gets while this filter is chosen.
        QString defaultSuffix{};
    };
    struct FileRequest {
        QString title;
        QString folder;       // where the dialog starts
        QString proposedName; // file name offered, may be empty
        std::vector<Filter> filters;
        int filterIndex = 1; // counted from 1
    };
    struct FileChoice {
        QString path;
        int filterIndex = 1; // the filter the user chose, counted from 1
    };

    virtual ~UserPrompts() = default;

    virtual void message(Icon icon, const QString& title, const QString& text) = 0;
    // Yes / No, or Yes / No / Cancel with `withCancel`.
    virtual Answer question(const QString& title, const QString& text, bool withCancel) = 0;
    // Nothing when the user cancels. A save dialog asks before replacing a file.
    virtual std::optional<FileChoice> openFile(const FileRequest& request) = 0;
    virtual std::optional<FileChoice> saveFile(const FileRequest& request) = 0;
    virtual void about(const QString& title, const QString& text) = 0;
    virtual void beep() = 0;
    // A colour (0xRRGGBB) starting from `colour`, and a font starting from `font` whose
    // point size lies within the limits. Nothing when the user cancels.
    virtual std::optional<unsigned> chooseColour(unsigned colour) = 0;
    virtual std::optional<TextFont> chooseFont(const TextFont& font, double minSize,
                                               double maxSize) = 0;

    struct SaveTarget {
        std::filesystem::path path;
        int filterIndex = 1;
    };
    // The save dialog until a writable place is chosen: a read-only medium, and
    // whatever `refusal` objects to, is refused with its message and the dialog comes
    // back. A name typed without an extension gets the chosen filter's. Nothing when
    // the user cancels.
    std::optional<SaveTarget>
    saveTarget(const FileRequest& request,
               const std::function<std::optional<Error>(const SaveTarget&)>& refusal = {});

    // The language of the window: of the errors told here, and of the core's texts
    // that the flows show.
    void setLanguage(Language language) { language_ = language; }
    Language language() const { return language_; }

    // An error as its message box: a refusal (a size, a read-only drive, a value)
    // with the exclamation mark, a failure of the system with the critical sign.
    void tell(const Error& error) {
        const bool refusal = error.kind == ErrorKind::TooSmall ||
                             error.kind == ErrorKind::TooLarge ||
                             error.kind == ErrorKind::ReadOnlyDrive ||
                             error.kind == ErrorKind::Invalid || error.kind == ErrorKind::Exists;
        const std::string& title = error.titleIn(language_);
        message(refusal ? Icon::Exclamation : Icon::Critical,
                QString::fromStdString(title.empty() ? std::string(kMessageTitle) : title),
                QString::fromStdString(error.text(language_)));
    }

private:
    Language language_ = Language::Russian;
};

} // namespace parlex::session
