#include "core/explain/fieldlayout.h"

#include "core/explain/explaintexts.h"

#include "core/text/hex.h"
#include "core/text/numbers.h"

#include <algorithm>

namespace parlex {
namespace {

constexpr auto kEditable = [] {
    std::array<EditableField, 24> rows{};
    std::size_t n = 0;
    for (const FieldInfo& f : kFields) {
        if (f.width == FieldWidth::Bytes)
            for (int i = 0; i < f.size(); ++i)
                rows[n++] = {f.index + i, FieldWidth::Byte};
        else
            rows[n++] = {f.index, f.width};
    }
    return rows;
}();

} // namespace

std::span<const FieldInfo> fieldTable() {
    return kFields;
}

const FieldInfo& fieldAt(int byteIndex) {
    const int byte = std::clamp(byteIndex, 0, static_cast<int>(kRecordSize) - 1);
    for (const FieldInfo& f : kFields)
        if (f.contains(byte))
            return f;
    return kFields.back(); // not reached: the table covers every byte
}

const FieldInfo* fieldStartingAt(int fieldIndex) {
    for (const FieldInfo& f : kFields)
        if (f.index == fieldIndex)
            return &f;
    return nullptr;
}

FieldStart fieldStart(int byteIndex) {
    const FieldInfo& f = fieldAt(byteIndex);
    switch (f.width) {
    case FieldWidth::Byte:
        return {f.index, " (" + std::to_string(f.index + 1) + " as Byte)"};
    case FieldWidth::Word:
        return {f.index, " (" + text::zeroPadded(f.index + 1, 2) + "-" +
                             text::zeroPadded(f.index + 2, 2) + " as Word)"};
    case FieldWidth::Bytes:
        break;
    }
    return {f.index, " (" + text::zeroPadded(f.index + 1, 2) + "-" +
                         text::zeroPadded(f.index + f.size(), 2) + " as Bytes)"};
}

std::uint32_t fieldValue(const NpcRecord& record, int fieldIndex) {
    const FieldInfo& f = fieldAt(fieldIndex);
    const auto at = [&](int i) { return static_cast<std::uint32_t>(record[f.index + i]); };
    switch (f.width) {
    case FieldWidth::Byte:
        return at(0);
    case FieldWidth::Word:
        return at(0) + 256u * at(1);
    case FieldWidth::Bytes:
        break;
    }
    for (int i = 0; i < f.size(); ++i)
        if (at(i) != 0)
            return 1;
    return 0;
}

std::string fieldHex(const NpcRecord& record, int fieldIndex) {
    const FieldInfo& f = fieldAt(fieldIndex);
    return text::hexBytes(std::span(record).subspan(static_cast<std::size_t>(f.index),
                                                    static_cast<std::size_t>(f.size())));
}

std::optional<ListKey> listForField(int fieldIndex) {
    const FieldInfo* f = fieldStartingAt(fieldIndex);
    return f ? f->list : std::nullopt;
}

std::optional<PhraseRange> spokenPhrases(const NpcRecord& record) {
    const auto first = fieldValue(record, fields::PhraseFirst);
    if (first == kMaxByteValue)
        return std::nullopt;
    return PhraseRange{static_cast<int>(first),
                       static_cast<int>(fieldValue(record, fields::PhraseCount))};
}

std::span<const EditableField> editableFields() {
    return kEditable;
}

std::optional<FieldWidth> editableFieldWidth(int fieldIndex) {
    for (const EditableField& e : kEditable)
        if (e.index == fieldIndex)
            return e.width;
    return std::nullopt;
}

std::string fieldRefusal(std::string_view given, Language language) {
    std::string places;
    int runStart = -1;
    // Lists the editable places, running single bytes together: "8-19".
    for (std::size_t i = 0; i < kEditable.size(); ++i) {
        const EditableField& e = kEditable[i];
        const bool single = e.width == FieldWidth::Byte;
        const bool nextFollows = single && i + 1 < kEditable.size() &&
                                 kEditable[i + 1].width == FieldWidth::Byte &&
                                 kEditable[i + 1].index == e.index + 1;
        if (runStart < 0)
            runStart = e.index;
        if (nextFollows)
            continue;
        if (!places.empty())
            places += ", ";
        places += std::to_string(runStart);
        if (runStart != e.index)
            places += "-" + std::to_string(e.index);
        runStart = -1;
    }
    return fill(explaintexts::kTexts(explaintexts::Say::FieldRefused, language), {given, places});
}

Result<void> setFieldValue(NpcRecord& record, int fieldIndex, std::uint32_t value) {
    const auto width = editableFieldWidth(fieldIndex);
    if (!width)
        return fail(ErrorKind::Invalid, inEach([&](Language l) {
                        return fieldRefusal(std::to_string(fieldIndex), l);
                    }));
    const std::uint32_t limit = widthMaximum(*width);
    if (value > limit)
        return fail(ErrorKind::Invalid, say(explaintexts::kTexts[explaintexts::Say::ValueTooLarge],
                                            {std::to_string(value), std::to_string(limit)}));
    record[fieldIndex] = static_cast<std::uint8_t>(value & 0xFF);
    if (*width == FieldWidth::Word)
        record[fieldIndex + 1] = static_cast<std::uint8_t>(value >> 8);
    return {};
}

} // namespace parlex
