#include "core/speech/decompiler.h"

#include "core/codelists/resources.h"
#include "core/platform/files.h"
#include "core/speech/edtfile.h"
#include "core/speech/speechtexts.h"
#include "core/text/cp1251.h"
#include "core/text/lines.h"
#include "core/text/numbers.h"

#include <array>

namespace parlex {
namespace {

constexpr int kFixedRoles = 11; // phrases 0-10 have fixed roles in a dialogue
using speechtexts::kTexts;
using speechtexts::Say;

// How often the game lets a record of each of the phrases 0-9 fire.
constexpr std::array<Say, 10> kFiring = {
    Say::FiresOnceInGame, Say::FiresOnceADay, Say::FiresOnceADay, Say::FiresOnceInGame,
    Say::FiresAlways,     Say::FiresOnceADay, Say::FiresOnceADay, Say::FiresOnceADay,
    Say::FiresOnceADay,   Say::FiresAlways,
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

std::string phraseRole(int n, Language language) {
    if (n < 0 || n >= kFixedRoles)
        return {};
    return std::string(kTexts(static_cast<Say>(static_cast<int>(Say::Role0) + n), language));
}

std::string decompileText(const EdtFile& file, Language language) {
    const auto last = file.lastNonEmpty();
    int l = last.value_or(0);
    if (l == 0)
        l = file.lastPhrase();
    l = std::max(l, kFixedRoles);
    l = std::min(l, file.lastPhrase());

    std::string utf8;
    const std::string stars(80, '*');
    for (int n = 0; n <= l; ++n) {
        const std::string head = fill(kTexts(Say::PhraseHead, language),
                                      {text::zeroPadded(static_cast<unsigned>(n), 3)});
        if (n < kFixedRoles) {
            utf8 += head + " " + phraseRole(n, language) + "\r\n";
            if (n < static_cast<int>(kFiring.size()))
                utf8 += std::string(kTexts(kFiring[n], language)) + "\r\n";
        } else {
            utf8 += head + "\r\n\r\n";
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

Result<void> decompileToFile(const EdtFile& file, const std::filesystem::path& path,
                             Language language) {
    if (file.kind() != EdtKind::NpcDialogues)
        return fail(ErrorKind::Invalid, say(kTexts[Say::OnlyNpcDialogues]));
    if (platform::driveKind(path) == platform::DriveKind::ReadOnly)
        return std::unexpected(platform::readOnlyDriveError(path, true));
    return platform::writeFileAtomic(path, decompileText(file, language));
}

} // namespace parlex
