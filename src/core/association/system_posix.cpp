#include "core/association/systemassociation.h"

#include "core/association/freedesktop.h"
#include "core/platform/files.h"

namespace parlex {

std::unique_ptr<FileAssociation> systemAssociation(const std::filesystem::path& program) {
    return std::make_unique<FreedesktopAssociation>(program, platform::userDataHome(),
                                                    platform::userConfigHome());
}

} // namespace parlex
