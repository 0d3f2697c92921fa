#pragma once

#include "core/common/error.h"

// Tying the script extension to this program in the desktop, so that opening a
// script from the file manager starts Parlex with it.
namespace parlex {

class FileAssociation {
public:
    virtual ~FileAssociation() = default;
    // Whether scripts open with this very copy of the program: both ends of the tie
    // are in place and the command names this program.
    virtual bool isAssociated() const = 0;
    // Makes this program the one that opens scripts. What can be written is written
    // even when one part fails; the error tells of the first failure.
    virtual Result<void> associate() = 0;
    // Unties scripts from whatever program has them, this one or another copy.
    virtual Result<void> disassociate() = 0;
};

} // namespace parlex
