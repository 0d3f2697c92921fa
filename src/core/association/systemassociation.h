#pragma once

#include "core/association/fileassociation.h"

#include <filesystem>
#include <memory>

namespace parlex {

// The association of the desktop this program runs on, for the program at
// `program` (its absolute path), in the user's own settings; nothing where the
// system offers no way to tie a file type to a program.
std::unique_ptr<FileAssociation> systemAssociation(const std::filesystem::path& program);

} // namespace parlex
