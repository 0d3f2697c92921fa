// What parlex-cli says, held over a mod whose scripts hold every value of every field:
// the Russian output must stay as it was, byte for byte.
#include "cli/clirun.h"
#include "core/explain/fieldlayout.h"
#include "core/npc/npcfile.h"
#include "core/npc/npcformat.h"
#include "core/speech/edtfile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <tuple>

namespace {

namespace fs = std::filesystem;
using namespace parlex;

#ifdef _WIN32
constexpr int kScripts = 200; // Wine starts processes and writes files slowly
#else
constexpr int kScripts = 2000; // enough records for every value of a Word field
#endif

// A mod in 20 folders: script s, record k is record n = 50 s + k of the whole mod, and
// each field of it steps through its values with a stride of its own, so that every
// value of every field turns up beside changing neighbours. Every 13th record is
// empty; odd scripts are in the "ja" layout; every 4th script has a speech file of
// NPC dialogues beside it. All texts are ASCII, the list files too.
void writeMod(const fs::path& root, int scripts) {
    constexpr std::uint32_t kStrides[] = {40503, 9973, 7919, 6007, 5003, 4001,
                                          3001,  2003, 1009, 503,  257,  131};
    for (int s = 0; s < scripts; ++s) {
        NpcFile file = NpcFile::makeNew();
        const bool ja = s % 2 == 1;
        for (std::size_t k = 0; k < file.recordCount() - (ja ? 1 : 0); ++k) {
            const std::uint32_t n =
                static_cast<std::uint32_t>(s) * 50 + static_cast<std::uint32_t>(k);
            NpcRecord r{};
            if (n % 13 != 0) {
                int f = 0;
                for (const EditableField& field : editableFields()) {
                    const std::uint32_t range = widthMaximum(field.width) + 1;
                    const std::uint32_t stride = kStrides[f++ % std::size(kStrides)];
                    (void)setFieldValue(r, field.index, (n * stride + 7u * f) % range);
                }
            }
            file.setRecord(k, r);
        }
        const fs::path folder = root / std::to_string(s % 20);
        fs::create_directories(folder);
        const std::string name = std::to_string(s);
        auto bytes = file.toBytes();
        if (ja)
            bytes = *npcformat::convertLayout(bytes, NpcFileType::Ja);
        testutil::writeBytes(folder / (name + ".npc"), {bytes.begin(), bytes.end()});
        if (s % 4 == 0) {
            EdtFile speech = EdtFile::makeNew(EdtKind::NpcDialogues);
            for (int p = 0; p <= kNpcLastPhrase; p += 1 + (s + p) % 3)
                (void)speech.setPhrase(p, "Phrase " + std::to_string(p) + " of script " + name);
            testutil::writeBytes(folder / (name + ".EDT"), speech.toBytes());
        }
    }
}

// The list files with a name for most codes, ASCII only.
void writeLists(const fs::path& folder) {
    fs::create_directories(folder);
    for (const char* name : {"React.txt", "Action.txt", "Trigg.txt", "Items.txt", "Npc.txt",
                             "Q_Input.txt", "Q_Output.txt"}) {
        std::string text = "; ASCII names for the tests\r\n";
        for (int code = 0; code < 600; code += 1 + code % 2)
            text += std::to_string(code) + "=" + name + " code " + std::to_string(code) + "\r\n";
        testutil::writeText(folder / name, text);
    }
}

// FNV-1a, 64 bits: a short fingerprint of an output too long to keep.
std::string digest(const std::string& text) {
    std::uint64_t h = 14695981039346656037ull;
    for (unsigned char c : text) {
        h ^= c;
        h *= 1099511628211ull;
    }
    char hex[17];
    std::snprintf(hex, sizeof hex, "%016" PRIx64, h);
    return hex;
}

// The --help of the program and of every command, printed one after the other.
constexpr const char* kEveryHelp = "every --help";
constexpr const char* kHelped[] = {
    "",           "info",       "dump",          "set",     "convert",       "lookup",
    "lists",      "lists show", "lists extract", "explain", "overview",      "edt",
    "edt show",   "edt info",   "edt set",       "edt new", "edt decompile", "edt export",
    "edt import", "lint",       "find",          "diff"};

class Languages : public testing::Test {
protected:
    static void SetUpTestSuite() {
        root_ = new testutil::TempDir;
        writeMod(root() / "mod", kScripts);
        writeLists(root() / "lists");
        testutil::writeBytes(root() / "short.npc", std::vector<std::uint8_t>(1500, 0));
    }
    static void TearDownTestSuite() {
        delete root_;
        root_ = nullptr;
    }
    static const fs::path& root() { return root_->path(); }

    // Everything a call printed, with the test's folder written as "@"; `more` is added
    // to the call (to each call of every --help).
    static std::string printed(const std::string& line, const std::string& more = "") {
        if (line == kEveryHelp) {
            std::string all;
            for (const char* command : kHelped)
                all += printed(std::string(command) + " --help", more);
            return all;
        }
        const clitest::Run run = clitest::runCli(clitest::words(line + more, root()));
        const std::string all = std::to_string(run.status) + "\n" + run.out + "\n--\n" + run.err;
        const std::string folder = root().string();
        std::string shown;
        shown.reserve(all.size());
        std::size_t from = 0;
        for (std::size_t at; (at = all.find(folder, from)) != std::string::npos;
             from = at + folder.size())
            shown.append(all, from, at - from).append("@");
        return shown.append(all, from);
    }

private:
    static inline testutil::TempDir* root_ = nullptr;
};

struct Fingerprint {
    const char* call;
    const char* russian; // FNV-1a of what the call prints in Russian
};

constexpr Fingerprint kCalls[] = {
    {kEveryHelp, "72107aecdaa110bf"},
    {"explain @mod/0/0.npc --record 8 --lists @lists", "29e1d63e27328f4a"},
    {"explain @mod --lists @lists", "2d53be084643e0e4"},
    {"explain @mod/3 --lists @lists --json", "5d657207604b2c9c"},
    {"lint @mod --lists @lists", "e8bb07c462b19790"},
    {"lint @mod/2 --lists @lists --json", "7169f646d0b221e8"},
    {"find @mod --lists @lists --list T --code 7", "2f065616294bfba0"},
    {"find @mod --phrase 3 --json", "9ff3829e8e385776"},
    {"diff @mod/0/0.npc @mod/1/1.npc --lists @lists", "4c151d90a96afa71"},
    {"diff @mod/0/0.npc @mod/0/20.npc --lists @lists --json", "09dacb0f00db10a3"},
    {"info @mod/5", "9954f4b1f1069401"},
    {"edt info @mod/0/0.EDT --kind npc", "cfe2b4713d0ef2ff"},
    {"edt info @mod/4/4.EDT --kind civ", "a9f9dfc5e7d1789b"},
    {"overview @mod/0/0.npc --lists @lists", "c2a426283b48965b"},
    {"overview @mod/1/1.npc --lists @lists --json --empty", "c810a2207a2df99c"},
    {"explain @short.npc", "80e88636fd810053"},
    {"explain @missing.npc", "cc7532f845c978c6"},
    {"set @mod/0/0.npc --record 51 --field 0 --value 1", "eb48d2612501b7f4"},
    {"edt info @mod/0/0.EDT", "fa9bea14fb215b91"},
    {"frobnicate", "6855c9c98670e9ed"},
};

// Set PARLEX_PRINT_DIGESTS to print the fingerprints of this tree instead of
// checking them, after a change that is meant to alter the Russian texts.
TEST_F(Languages, RussianOutputStaysAsItWas) {
#ifdef _WIN32
    GTEST_SKIP() << "the fingerprints are of the Linux output (paths, file count)";
#endif
    const bool print = std::getenv("PARLEX_PRINT_DIGESTS") != nullptr;
    for (const Fingerprint& c : kCalls) {
        const std::string got = digest(printed(c.call));
        if (print)
            std::cout << "        {\"" << c.call << "\", \"" << got << "\"},\n";
        else
            EXPECT_EQ(got, c.russian) << c.call << "\n" << printed(c.call).substr(0, 3000);
    }
}

// In English, nothing of what the program says is Russian: the scripts, the lists
// and the phrases of this mod are ASCII, so any Cyrillic letter is one of ours.
TEST_F(Languages, EnglishOutputHasNoRussianWord) {
    for (const Fingerprint& c : kCalls) {
        const std::string got = printed(c.call, " --lang en");
        EXPECT_FALSE(testutil::hasCyrillic(got)) << c.call << "\n" << got.substr(0, 3000);
        EXPECT_GT(got.size(), 8u) << c.call;
    }
}

#ifndef _WIN32
// Without --lang the environment decides (its rules are the core's); --lang goes first.
TEST_F(Languages, TheEnvironmentChoosesWithoutLang) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"en_GB.UTF-8", "--help", true},
        {"C", "--help", false},
        {"en_GB.UTF-8", "--help --lang ru", false},
    };
    ::unsetenv("PARLEX_LANG");
    ::unsetenv("LC_ALL");
    ::unsetenv("LC_MESSAGES");
    for (const auto& [lang, call, english] : cases) {
        ::setenv("LANG", lang, 1);
        EXPECT_EQ(!testutil::hasCyrillic(printed(call)), english) << lang << " " << call;
    }
    ::unsetenv("LANG");
}
#endif

} // namespace
