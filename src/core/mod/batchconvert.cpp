#include "core/mod/batchconvert.h"

#include "core/mod/modtexts.h"
#include "core/npc/npcformat.h"
#include "core/platform/files.h"

#include <set>

namespace parlex::mod {
namespace fs = std::filesystem;
using modtexts::kTexts;
using modtexts::Say;

std::vector<ConvertOutcome> convertScripts(std::span<const fs::path> scripts, NpcFileType to,
                                           const std::optional<fs::path>& outDir,
                                           bool replaceExisting, Language language) {
    using Status = ConvertOutcome::Status;
    std::vector<ConvertOutcome> outcomes;
    std::set<fs::path> written;
    if (outDir) {
        std::error_code ec;
        fs::create_directories(*outDir, ec); // a failure shows in each write
    }
    for (const auto& source : scripts) {
        const fs::path target = outDir ? *outDir / source.filename() : source;
        const auto bytes = npcformat::readScript(source);
        if (!bytes) {
            outcomes.push_back({source, target, Status::Failed, bytes.error().text(language)});
            continue;
        }
        if (npcformat::detectType(*bytes) == to) {
            outcomes.push_back({source, target, Status::Skipped,
                                fill(kTexts(Say::AlreadyInLayout, language), {typeTag(to)})});
            continue;
        }
        std::error_code ec;
        const fs::path canonical = fs::weakly_canonical(target, ec);
        if (!written.insert(ec ? target : canonical).second) {
            outcomes.push_back(
                {source, target, Status::Skipped,
                 fill(kTexts(Say::WrittenFromAnother, language), {platform::utf8(target)})});
            continue;
        }
        if (outDir && !replaceExisting && platform::fileExists(target) &&
            !platform::samePath(source, target)) {
            outcomes.push_back(
                {source, target, Status::Exists,
                 fill(kTexts(Say::TargetExists, language), {platform::utf8(target)})});
            continue;
        }
        const auto converted = npcformat::convertLayout(*bytes, to);
        const auto saved = converted ? platform::writeFileAtomic(target, *converted)
                                     : Result<void>(std::unexpected(converted.error()));
        if (saved)
            outcomes.push_back({source,
                                target,
                                Status::Converted,
                                {},
                                npcformat::conversionLoss(*bytes, to, language).value_or("")});
        else
            outcomes.push_back({source, target, Status::Failed, saved.error().text(language)});
    }
    return outcomes;
}

} // namespace parlex::mod
