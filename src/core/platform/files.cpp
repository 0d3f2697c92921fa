#include "core/platform/files.h"

#include "core/platform/systemtexts.h"

#include <algorithm>

// What every platform shares; the rest lives in files_posix.cpp and files_windows.cpp.
namespace parlex::platform {
namespace {

using systemtexts::kTexts;
using systemtexts::Say;

std::string errorText(Say what, const fs::path& path, int errorNumber, Language language) {
    return fill(kTexts(Say::FailureWhile, language),
                {kTexts(what, language), std::to_string(errorNumber),
                 errorDescription(errorNumber, language), utf8(path)});
}

// The innermost fault of this thread; tests nest them rarely, but may.
thread_local SaveFault* activeFault = nullptr;

} // namespace

fs::path pathFromUtf8(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string utf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string lowerExtension(const fs::path& path) {
    std::string extension = utf8(path.extension());
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return extension;
}

std::string mountPointOf(std::string_view mountinfo, const fs::path& path, unsigned major,
                         unsigned minor) {
    const std::string wanted = std::to_string(major) + ":" + std::to_string(minor);
    const std::string where = path.string();
    std::string best;
    std::size_t start = 0;
    while (start < mountinfo.size()) {
        std::size_t end = mountinfo.find('\n', start);
        if (end == std::string_view::npos)
            end = mountinfo.size();
        const std::string_view line = mountinfo.substr(start, end - start);
        start = end + 1;
        // "36 35 98:0 /root /mnt/point options ...": the third field is the device,
        // the fifth the mount point with blanks written as octal escapes.
        std::string_view fields[5];
        std::size_t at = 0;
        for (auto& field : fields) {
            while (at < line.size() && line[at] == ' ')
                ++at;
            const std::size_t stop = std::min(line.find(' ', at), line.size());
            field = line.substr(at, stop - at);
            at = stop;
        }
        if (fields[2] != wanted)
            continue;
        std::string point;
        for (std::size_t i = 0; i < fields[4].size(); ++i) {
            const std::string_view rest = fields[4].substr(i);
            if (rest.size() >= 4 && rest[0] == '\\' && rest[1] >= '0' && rest[1] <= '3' &&
                rest[2] >= '0' && rest[2] <= '7' && rest[3] >= '0' && rest[3] <= '7') {
                point +=
                    static_cast<char>((rest[1] - '0') * 64 + (rest[2] - '0') * 8 + (rest[3] - '0'));
                i += 3;
            } else {
                point += rest[0];
            }
        }
        const bool inside =
            point == "/" || where == point ||
            (where.starts_with(point) && where.size() > point.size() && where[point.size()] == '/');
        if (inside && point.size() >= best.size())
            best = point;
    }
    return best;
}

Error readOnlyDriveError(const fs::path& path, bool hint) {
    Said message = say(kTexts[Say::ReadOnlyDrive], {driveRoot(path)});
    if (hint)
        message += say(kTexts[Say::OtherPath]);
    return Error::said(ErrorKind::ReadOnlyDrive, message);
}

bool fileExists(const fs::path& path) {
    std::error_code ec;
    return fs::is_regular_file(path, ec);
}

bool samePath(const fs::path& a, const fs::path& b) {
    std::error_code ec;
    if (a == b || fs::equivalent(a, b, ec))
        return true;
    std::error_code ea, eb;
    const auto ca = fs::weakly_canonical(a, ea);
    const auto cb = fs::weakly_canonical(b, eb);
    return !ea && !eb && ca == cb;
}

std::string readErrorMessage(const fs::path& path, int errorNumber, Language language) {
    return errorText(Say::WhileReading, path, errorNumber, language);
}
std::string writeErrorMessage(const fs::path& path, int errorNumber, Language language) {
    return errorText(Say::WhileSaving, path, errorNumber, language);
}

Error readError(ErrorKind kind, const fs::path& path, int errorNumber) {
    return Error::said(kind,
                       inEach([&](Language l) { return readErrorMessage(path, errorNumber, l); }),
                       {}, errorNumber);
}
Error writeError(const fs::path& path, int errorNumber) {
    return Error::said(ErrorKind::Write,
                       inEach([&](Language l) { return writeErrorMessage(path, errorNumber, l); }),
                       {}, errorNumber);
}

Result<void> writeFileAtomic(const fs::path& path, std::string_view bytes) {
    return writeFileAtomic(
        path, std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

Result<std::vector<std::uint8_t>> readFileLimited(const fs::path& path, std::uintmax_t limit) {
    const auto size = fileSize(path);
    if (!size)
        return std::unexpected(size.error());
    const auto tooLarge = [&](std::uintmax_t bytes) {
        return fail(ErrorKind::TooLarge,
                    say(kTexts[Say::TooLargeToRead],
                        {utf8(path), std::to_string(bytes), std::to_string(limit)}));
    };
    if (*size > limit)
        return tooLarge(*size);
    auto data = readFile(path);
    // The file may have grown between the two looks.
    if (data && data->size() > limit)
        return tooLarge(data->size());
    return data;
}

SaveFault::SaveFault(SaveStep step, int errorNumber)
    : step_(step), errorNumber_(errorNumber), action_(nullptr), outer_(activeFault) {
    activeFault = this;
}

SaveFault::SaveFault(SaveStep step, int (*action)())
    : step_(step), errorNumber_(0), action_(action), outer_(activeFault) {
    activeFault = this;
}

SaveFault::~SaveFault() {
    activeFault = outer_;
}

int SaveFault::at(SaveStep step) {
    for (const SaveFault* fault = activeFault; fault; fault = fault->outer_)
        if (fault->step_ == step)
            return fault->action_ ? fault->action_() : fault->errorNumber_;
    return 0;
}

} // namespace parlex::platform
