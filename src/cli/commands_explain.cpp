// parlex-cli explain: a script read in words, record by record, field by field.
#include "cli/commands.h"
#include "cli/json.h"
#include "codelists/codelists.h"
#include "explain/explainer.h"
#include "explain/fieldlayout.h"
#include "npc/npcfile.h"
#include "platform/files.h"
#include "text/hex.h"
#include "text/numbers.h"

#include <ostream>

namespace parlex::cli {
namespace {

void printText(const NpcRecord* record, int position, const ExplainContext& context, Io io) {
    io.out << "Запись " << text::zeroPadded(static_cast<unsigned>(position), 2) << ": "
           << (record ? text::hexBytes(*record) : std::string("(нет записи)")) << "\n";
    for (const auto& field : fieldTable()) {
        const Explanation e = explain(record, field.index, context);
        std::string label = fieldStart(field.index).label; // " (01-02 as Word)"
        label = label.substr(2, label.size() - 3);
        io.out << (e.alert ? "  ! " : "    ") << label;
        if (record)
            io.out << " [" << fieldHex(*record, field.index) << "]";
        io.out << ": " << e.text;
        if (!e.remark.empty())
            io.out << "**" << e.remark << "**";
        io.out << "\n";
    }
}

void printJson(const NpcRecord* record, int position, const ExplainContext& context, Io io) {
    io.out << "{\"record\":" << position
           << ",\"hex\":" << jsonString(record ? text::hexBytes(*record, "") : std::string())
           << ",\"fields\":[";
    bool first = true;
    for (const auto& field : fieldTable()) {
        const Explanation e = explain(record, field.index, context);
        const std::uint32_t value =
            record && !isEmptyRecord(*record) ? fieldValue(*record, field.index) : 0;
        io.out << (first ? "" : ",") << "{\"field\":" << field.index
               << ",\"label\":" << jsonString(fieldStart(field.index).label)
               << ",\"value\":" << value << ",\"text\":" << jsonString(e.text)
               << ",\"alert\":" << (e.alert ? "true" : "false")
               << ",\"remark\":" << jsonString(e.remark) << "}";
        first = false;
    }
    io.out << "]}";
}

int runExplain(const Args& args, Io io) {
    if (args.positional.size() != 1)
        return usage("explain", "нужен ровно один файл .npc", io);
    std::optional<long long> only;
    if (auto text = args.value("--record")) {
        only = parseNumber(*text, 1, 50);
        if (!only)
            return usage("explain", "номер записи должен быть от 1 до 50", io);
    }
    auto file = NpcFile::load(args.positional[0]);
    if (!file)
        return report(file.error(), io);
    const CodeLists lists(listsFolder(args));
    const ExplainContext context{file->type(), &lists, false, 0};
    const bool json = args.has("--json");
    const int from = only ? static_cast<int>(*only) : 1;
    const int to = only ? static_cast<int>(*only) : static_cast<int>(file->recordCount());
    if (json)
        io.out << "{\"type\":" << jsonString(typeTag(file->type())) << ",\"records\":[";
    for (int position = from; position <= to; ++position) {
        const NpcRecord* record = file->recordAt(position);
        if (json) {
            io.out << (position == from ? "" : ",");
            printJson(record, position, context, io);
        } else {
            io.out << (position == from ? "" : "\n");
            printText(record, position, context, io);
        }
    }
    if (json)
        io.out << "]}\n";
    return kOk;
}

constexpr OptionSpec kOptions[] = {{"--record", true}, {"--lists", true}, {"--json", false}};

constexpr Command kCommands[] = {
    {"explain", "explain FILE.npc [--record N] [--lists DIR] [--json]",
     "каждое поле каждой записи словами, как их объясняет окно программы",
     "Без --record: все записи файла (50 для \"ub\", 49 для \"ja\"); --record N: позиция 1-50\n"
     "(позиция 50 файла \"ja\" не содержит записи). В тексте \"!\" в начале строки отмечает\n"
     "ошибочное значение (в окне - тёмно-красный цвет), **...** - замечание после фразы.\n"
     "--json: {\"type\":..., \"records\":[{\"record\":1, \"hex\":..., \"fields\":[{\"field\":0,\n"
     "\"label\":..., \"value\":..., \"text\":..., \"alert\":..., \"remark\":...}, ...]}]}",
     kOptions, runExplain},
};

} // namespace

std::span<const Command> explainCommands() {
    return kCommands;
}

} // namespace parlex::cli
