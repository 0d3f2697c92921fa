#include "core/speech/decompiler.h"

#include "core/codelists/resources.h"
#include "core/platform/files.h"
#include "core/speech/edtfile.h"
#include "core/text/cp1251.h"
#include "core/text/lines.h"
#include "core/text/numbers.h"

#include <array>

namespace parlex {
namespace {

constexpr int kFixedRoles = 11; // phrases 0-10 have fixed roles in a dialogue
constexpr int kHeadString = 10; // resource string of the head of phrase 0

// How often the game lets a record of each of the phrases 0-9 fire.
constexpr std::array<std::string_view, 10> kFiring = {
    "Запись сработает: только один раз во всей игре!",
    "Запись сработает: только один раз в день!",
    "Запись сработает: только один раз в день!",
    "Запись сработает: только один раз во всей игре!",
    "Запись сработает: всегда!",
    "Запись сработает: только один раз в день!",
    "Запись сработает: только один раз в день!",
    "Запись сработает: только один раз в день!",
    "Запись сработает: только один раз в день!",
    "Запись сработает: всегда!",
};

} // namespace

std::vector<std::string> wrapText(std::string_view text, std::size_t width) {
    std::vector<std::string> lines;
    std::string line;
    std::size_t pos = 0;
    while (pos < text.size()) {
        // The next word with the blanks before it; blanks start no new line.
        const auto wordStart = text.find_first_not_of(' ', pos);
        if (wordStart == std::string_view::npos)
            break;
        const std::string_view gap = text.substr(pos, wordStart - pos);
        const auto wordEnd = std::min(text.find(' ', wordStart), text.size());
        std::string_view word = text.substr(wordStart, wordEnd - wordStart);
        pos = wordEnd;
        if (!line.empty() && line.size() + gap.size() + word.size() <= width) {
            line += std::string(gap) + std::string(word);
            continue;
        }
        if (!line.empty()) {
            lines.push_back(line);
            line.clear();
        }
        while (word.size() > width) { // a word longer than a line is split
            lines.emplace_back(word.substr(0, width));
            word = word.substr(width);
        }
        line = std::string(word);
    }
    if (!line.empty())
        lines.push_back(line);
    for (auto& l : lines)
        l = std::string(text::trimmed(l));
    return lines;
}

std::string phraseRole(int n) {
    if (n < 0 || n >= kFixedRoles)
        return {};
    return resourceString(kHeadString + n).value_or("");
}

std::string decompileText(const EdtFile& file) {
    const auto last = file.lastNonEmpty();
    int l = last.value_or(0);
    if (l == 0)
        l = file.lastPhrase();
    l = std::max(l, kFixedRoles);
    l = std::min(l, file.lastPhrase());

    std::string utf8;
    const std::string stars(80, '*');
    for (int n = 0; n <= l; ++n) {
        if (n < kFixedRoles) {
            utf8 += "Фраза " + text::zeroPadded(static_cast<unsigned>(n), 3) + ". " +
                    phraseRole(n) + "\r\n";
            if (n < static_cast<int>(kFiring.size()))
                utf8 += std::string(kFiring[n]) + "\r\n";
        } else {
            utf8 += "Фраза " + text::zeroPadded(static_cast<unsigned>(n), 3) + ".\r\n\r\n";
        }
        auto lines = wrapText(file.phraseBytes(n));
        lines.resize(3);
        for (int k = 0; k < 3; ++k)
            utf8 += std::to_string(k + 1) + "." + text::cp1251ToUtf8(lines[k]) + "\r\n";
        utf8 += stars + "\r\n";
    }
    // Everything in it came from Windows-1251 or from the program's own texts.
    return text::utf8ToCp1251(utf8).value_or(std::string());
}

Result<void> decompileToFile(const EdtFile& file, const std::filesystem::path& path) {
    if (file.kind() != EdtKind::NpcDialogues)
        return fail(ErrorKind::Invalid,
                    "Раскомпилировать можно только диалоги НПЦ (143 фразы по 480 байт).");
    if (platform::driveKind(path) == platform::DriveKind::ReadOnly)
        return std::unexpected(platform::readOnlyDriveError(path, true));
    return platform::writeFileAtomic(path, decompileText(file));
}

} // namespace parlex
