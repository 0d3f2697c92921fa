#include "cli/commands.h"
#include "cli/json.h"
#include "core/codelists/codelists.h"
#include "core/mod/scripts.h"
#include "core/npc/npcformat.h"
#include "core/platform/files.h"
#include "core/settings/locations.h"
#include "core/speech/edtfile.h"

#include <algorithm>
#include <ostream>

namespace parlex::cli {

std::filesystem::path listsFolder(const Args& args) {
    if (auto dir = args.value("--lists"))
        return pathArg(*dir);
    return locations(platform::programDir()).listFolder;
}

Result<std::filesystem::path> readableListsFolder(const Args& args) {
    auto folder = listsFolder(args);
    if (auto unreadable = CodeLists(folder).check())
        return std::unexpected(*unreadable);
    return folder;
}

std::string tell(Io io, Say key, std::initializer_list<std::string_view> values) {
    return fill(kTexts(key, io.language), values);
}

int report(const Error& error, Io io) {
    io.err << "parlex-cli: " << error.text(io.language) << "\n";
    return kFailed;
}

int forEachScript(const Args& args, std::string_view command,
                  const std::function<ScriptOutput()>& makeOne, Io io) {
    if (args.positional.empty())
        return usage(command, tell(io, Say::OneOrMoreScripts), io);
    const std::vector<std::filesystem::path> named = pathArgs(args.positional);
    const auto scripts = mod::collectScripts(named);
    const bool several = scripts.size() > 1 || std::filesystem::is_directory(named.front());
    const bool json = args.has("--json");
    int status = kOk;
    bool first = true;
    // A batch at a time, so that the outputs of a large mod are not all held at once.
    constexpr std::size_t kBatch = 256;
    for (std::size_t start = 0; start < scripts.size(); start += kBatch) {
        const std::size_t count = std::min(kBatch, scripts.size() - start);
        std::vector<Result<std::string>> outputs(count);
        mod::forEachParallel(count, [&] {
            return [&, one = makeOne()](std::size_t i) { outputs[i] = one(scripts[start + i]); };
        });
        for (std::size_t i = 0; i < count; ++i) {
            auto& output = outputs[i];
            const auto& script = scripts[start + i];
            if (!output) {
                report(output.error(), io);
                status = kFailed;
                continue;
            }
            if (several && json && output->starts_with("{"))
                output->insert(1, "\"file\":" + jsonString(platform::utf8(script)) + ",");
            else if (several && !json)
                io.out << (first ? "" : "\n") << "==> " << platform::utf8(script) << " <==\n";
            io.out << *output;
            first = false;
        }
    }
    return status;
}

std::optional<long long> numberArg(std::string_view command, std::string_view option,
                                   std::string_view given, long long min, long long max, Io io) {
    if (auto value = parseNumber(given, min, max))
        return value;
    usage(command,
          tell(io, Say::NotANumber, {option, given, std::to_string(min), std::to_string(max)}), io);
    return std::nullopt;
}

namespace {

// Whether a file has the size of a script or of a speech file of some kind.
bool holdsGameFile(const std::filesystem::path& path) {
    const auto size = platform::fileSize(path);
    if (!size)
        return false;
    if (*size == npcformat::kFileSize)
        return true;
    for (const EdtKind kind : {EdtKind::NpcDialogues, EdtKind::Civilian, EdtKind::Remarks})
        if (!EdtFile::checkSize(path, *size, kind) && *size % kindInfo(kind).recordSize == 0)
            return true;
    return false;
}

} // namespace

std::optional<Error> overwriteRefusal(const std::filesystem::path& output, const Args& args,
                                      bool onlyGameFiles) {
    if (args.has("--yes") || !platform::fileExists(output) ||
        (onlyGameFiles && !holdsGameFile(output)))
        return std::nullopt;
    return Error::said(ErrorKind::Exists, say(kTexts[Say::Exists], {platform::utf8(output)}));
}

int usage(std::string_view command, std::string_view complaint, Io io) {
    io.err << "parlex-cli " << command << ": " << complaint << "\n"
           << tell(io, Say::SeeHelp, {command}) << "\n";
    return kUsage;
}

} // namespace parlex::cli
