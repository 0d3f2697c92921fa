#pragma once

// Varied scripts and speech files for measuring the whole-mod commands: each record
// empty or filled, each field of a filled record left neutral or drawn: mostly a
// value real scripts hold (a code the lists name), sometimes any value the field can
// hold. The same seed gives the same scripts.
#include "core/codelists/codelists.h"
#include "core/explain/fieldlayout.h"
#include "core/npc/npcfile.h"
#include "core/speech/edtfile.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <span>
#include <string>

namespace parlex::bench {

// Values as real scripts hold them: codes that the game's lists name, days in order,
// phrases within the speech file; now and then any value the field can hold, so that
// lint has something to say.
class Corpus {
public:
    explicit Corpus(unsigned seed) : random_(seed), lists_("", false) {}

    NpcRecord record() {
        if (chance(0.3))
            return NpcRecord{}; // an empty record
        NpcRecord r = kNeutralRecord;
        for (const EditableField& f : editableFields()) {
            // Spare bytes are rarely set in real scripts; other fields often are.
            const bool spare = f.index == 19 || f.index >= 28;
            if (chance(spare ? 0.98 : 0.5))
                continue;
            const std::uint32_t value =
                chance(0.05) ? pick(0, widthMaximum(f.width)) : likely(f.index, r);
            (void)setFieldValue(r, f.index, value);
        }
        return r;
    }

    npcformat::FileBytes script() {
        NpcFile file = NpcFile::makeNew();
        const bool ja = chance(0.5);
        // A "ja" file holds 49 records: the 50th stays empty.
        for (std::size_t i = 0; i < file.recordCount() - (ja ? 1 : 0); ++i)
            file.setRecord(i, record());
        const npcformat::FileBytes ub = file.toBytes();
        if (!ja)
            return ub;
        const auto converted = npcformat::convertLayout(ub, NpcFileType::Ja);
        return converted ? *converted : ub;
    }

    EdtFile speech() {
        EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
        const int last = static_cast<int>(pick(0, kNpcLastPhrase));
        for (int p = 0; p <= last; ++p)
            if (chance(0.7))
                (void)file.setPhrase(p, "Фраза " + std::to_string(p) + " для проверки");
        return file;
    }

    bool chance(double p) { return std::bernoulli_distribution(p)(random_); }

private:
    std::uint32_t pick(std::uint32_t least, std::uint32_t most) {
        return std::uniform_int_distribution<std::uint32_t>(least, most)(random_);
    }

    // A value such as a modder would write into the field.
    std::uint32_t likely(int field, const NpcRecord& r) {
        switch (field) {
        case 0:
            return pick(0, 2) * 2; // fire mode 0, 2 or 4
        case 9:
            return pick(0, 30);
        case 10:
            return chance(0.5) ? 255 : pick(r[9] + 1u, 254);
        case 12:
            return pick(0, 100);
        case 13:
            return pick(0, kNpcLastPhrase - 5);
        case 14:
            return r[13] == 0xFF ? 1 : pick(1, 4); // a count only behind a first phrase
        case 18:
            return pick(0, 48);
        case 24:
            return pick(0, 65534);
        case 19:
        case 28:
        case 29:
        case 30:
        case 31:
            return 0;
        default:
            return namedCode(field);
        }
    }

    // A code the field's list names: drawn until one is.
    std::uint32_t namedCode(int field) {
        for (;;) {
            const std::uint32_t code = pick(0, 999);
            if (lists_.lookupCode(field, code) != "?")
                return code;
        }
    }

    std::mt19937 random_;
    CodeLists lists_; // the built-in lists
};

// Writes `count` scripts into 100 folders of `root` ("0" to "99"), named by their
// number, with a speech file of NPC dialogues beside half of them; false when a file
// cannot be written. Plain writes: a mod to measure on, made quickly, not a user's
// file to keep safe.
inline bool writeMod(const std::filesystem::path& root, unsigned count, unsigned seed) {
    Corpus corpus(seed);
    const auto write = [](const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
        return bool(out);
    };
    for (unsigned i = 0; i < count; ++i) {
        const std::filesystem::path folder = root / std::to_string(i % 100);
        std::error_code ec;
        std::filesystem::create_directories(folder, ec);
        const std::string name = std::to_string(i);
        if (!write(folder / (name + ".npc"), corpus.script()))
            return false;
        if (corpus.chance(0.5) && !write(folder / (name + ".EDT"), corpus.speech().toBytes()))
            return false;
    }
    return true;
}

} // namespace parlex::bench
