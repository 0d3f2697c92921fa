#include "core/mod/scripts.h"
#include "core/platform/files.h"

#include "core/codelists/codelists.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace parlex::mod {
namespace fs = std::filesystem;

namespace {

bool isScriptName(const fs::path& path) {
    return platform::lowerExtension(path) == ".npc";
}

} // namespace

std::vector<fs::path> collectScripts(std::span<const fs::path> paths) {
    std::vector<fs::path> scripts;
    for (const auto& path : paths) {
        std::error_code ec;
        if (!fs::is_directory(path, ec)) {
            scripts.push_back(path);
            continue;
        }
        const auto options = fs::directory_options::skip_permission_denied;
        for (fs::recursive_directory_iterator it(path, options, ec), end; !ec && it != end;
             it.increment(ec))
            if (isScriptName(it->path()) && it->is_regular_file(ec))
                scripts.push_back(it->path());
    }
    std::ranges::sort(scripts);
    scripts.erase(std::unique(scripts.begin(), scripts.end()), scripts.end());
    return scripts;
}

void forEachParallel(std::size_t count, const std::function<Worker()>& makeWorker) {
    constexpr std::size_t kWorthAThread = 16;
    const std::size_t threads =
        std::min<std::size_t>(std::max(1u, std::thread::hardware_concurrency()),
                              (count + kWorthAThread - 1) / kWorthAThread);
    std::atomic<std::size_t> next{0};
    const auto run = [&] {
        const Worker work = makeWorker();
        for (std::size_t i = next++; i < count; i = next++)
            work(i);
    };
    if (threads <= 1) {
        run();
        return;
    }
    // Plain threads joined by hand: libc++ 16, which the fuzz build uses, has no jthread.
    std::vector<std::thread> pool;
    for (std::size_t t = 1; t < threads; ++t)
        pool.emplace_back(run);
    run();
    for (auto& thread : pool)
        thread.join();
}

std::vector<Finding> checkScripts(std::span<const fs::path> scripts, const CodeLists& lists,
                                  const ScriptCheck& check, Language language) {
    std::vector<std::vector<Finding>> perScript(scripts.size());
    forEachParallel(scripts.size(), [&] {
        auto own = std::make_shared<CodeLists>(lists.folder(), false);
        return [&, own](std::size_t i) {
            const auto bytes = npcformat::readScript(scripts[i]);
            if (bytes)
                check(scripts[i], *bytes, *own, perScript[i]);
            else
                perScript[i].push_back({scripts[i], std::nullopt, std::nullopt, Severity::Error,
                                        bytes.error().text(language)});
            sortFindings(perScript[i]);
        };
    });
    // Each script's findings are in order; so are the scripts, unless the caller's
    // list was not sorted.
    std::size_t total = 0;
    for (const auto& found : perScript)
        total += found.size();
    std::vector<Finding> all;
    all.reserve(total);
    for (auto& found : perScript)
        std::ranges::move(found, std::back_inserter(all));
    if (!std::ranges::is_sorted(scripts))
        sortFindings(all);
    return all;
}

} // namespace parlex::mod
