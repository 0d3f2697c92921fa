#pragma once

// What the program says of the system's failures, in each language.
#include "core/text/language.h"

namespace parlex::systemtexts {

enum class Say {
    NoSuchFile,
    NoAccess,
    DiskFull,
    ReadOnlyFileSystem,
    IsFolder,
    NotFolder,
    NameTooLong,
    QuotaExceeded,
    InputOutput,
    FileTooBig,
    FailureWhile,
    WhileReading,
    WhileSaving,
    ReadOnlyDrive,
    OtherPath,
    TooLargeToRead,
    CannotRead,
    CannotRemove,
    CannotWriteKey,
    CannotRemoveKey,
};

inline constexpr auto kTexts = textTable<Say>({
    {Say::NoSuchFile, {"Нет такого файла или папки", "No such file or folder"}},
    {Say::NoAccess, {"Нет прав доступа", "Permission denied"}},
    {Say::DiskFull, {"На диске нет места", "The disk is full"}},
    {Say::ReadOnlyFileSystem,
     {"Файловая система только для чтения", "The file system is read-only"}},
    {Say::IsFolder, {"На этом месте папка, а не файл", "There is a folder here, not a file"}},
    {Say::NotFolder, {"Часть пути не является папкой", "A part of the path is not a folder"}},
    {Say::NameTooLong, {"Слишком длинное имя файла", "The file name is too long"}},
    {Say::QuotaExceeded, {"Превышена дисковая квота", "The disk quota is exceeded"}},
    {Say::InputOutput, {"Ошибка ввода-вывода", "Input/output error"}},
    {Say::FileTooBig, {"Файл больше разрешённого размера", "The file is larger than allowed"}},
    {Say::FailureWhile,
     {"Ошибка во время {1}. Error {2}\n{3}\nФайл: {4}",
      "Error while {1}. Error {2}\n{3}\nFile: {4}"}},
    {Say::WhileReading, {"чтения файла", "reading the file"}},
    {Say::WhileSaving, {"сохранения файла", "saving the file"}},
    {Say::ReadOnlyDrive, {"Диск {1}\nтолько для чтения", "The drive {1}\nis read-only"}},
    {Say::OtherPath, {"\nУкажите другой путь", "\nChoose another path"}},
    {Say::TooLargeToRead,
     {"Файл {1} слишком велик: {2} байт (можно не больше {3}).",
      "The file {1} is too large: {2} bytes (at most {3} will do)."}},
    {Say::CannotRead, {"Не удалось прочитать {1}", "Could not read {1}"}},
    {Say::CannotRemove, {"Не удалось удалить {1}", "Could not remove {1}"}},
    {Say::CannotWriteKey,
     {"Не удалось записать ключ реестра {1}", "Could not write the registry key {1}"}},
    {Say::CannotRemoveKey,
     {"Не удалось удалить ключ реестра .npc", "Could not remove the registry key .npc"}},
});

} // namespace parlex::systemtexts
