#pragma once

// What the core says of scripts and their layouts, in each language.
#include "core/text/language.h"

namespace parlex::npctexts {

enum class Say {
    UbName,
    JaName,
    Summary,
    NoSuchRecord,
    NotSavedYet,
    NotFound,
    SizeSmaller,
    SizeLarger,
    AlreadyType,
    MarkInRecordOne,
    RecordFiftyLost,
};

inline constexpr auto kTexts = textTable<Say>({
    {Say::UbName, {"JA2-англ. JA2UB-любая версия", "JA2 English, JA2UB any version"}},
    {Say::JaName, {"Агония Власти", "Agonia Vlasti (the Russian JA2)"}},
    {Say::Summary, {"Тип файла:\n{1}\nЗаписей: {2}", "Layout:\n{1}\nRecords: {2}"}},
    {Say::NoSuchRecord,
     {"Записи {1} в файле нет: записи с 1 по {2}.",
      "The file has no record {1}: its records are 1 to {2}."}},
    {Say::NotSavedYet,
     {"Файл ещё не сохранён: укажите имя файла.",
      "The file has not been saved yet: give it a name."}},
    {Say::NotFound, {"Файл {1} не найден.", "The file {1} was not found."}},
    {Say::SizeSmaller,
     {"Размер файла {1}\nменьше чем {2} байт", "The size of the file {1}\nis less than {2} bytes"}},
    {Say::SizeLarger,
     {"Размер файла {1}\nбольше чем {2} байт", "The size of the file {1}\nis more than {2} bytes"}},
    {Say::AlreadyType,
     {"Файл уже имеет тип \"{1}\".\nПреобразовывать нечего: выберите другой тип.",
      "The file is already of the layout \"{1}\".\nThere is nothing to convert: choose the "
      "other layout."}},
    {Say::MarkInRecordOne,
     {"Запись 1 начинается с байтов 39 00 35 00 - метки формата \"ja\": файл в формате \"ub\" "
      "будет снова прочитан как \"ja\".",
      "Record 1 begins with the bytes 39 00 35 00, the mark of the \"ja\" layout: the file "
      "in the \"ub\" layout will be read as \"ja\" again."}},
    {Say::RecordFiftyLost,
     {"Запись 50 не пуста: в формате \"ja\" 49 записей, она не сохранится.",
      "Record 50 is not empty: the \"ja\" layout has 49 records, so it will not be saved."}},
});

} // namespace parlex::npctexts
