#pragma once

#include "core/association/registryassociation.h"

namespace parlex {

// The classes of the current user in the Windows registry
// (HKEY_CURRENT_USER\Software\Classes), which need no administrator. Key names and
// values go to the system as UTF-16.
class Win32Registry : public Registry {
public:
    std::optional<std::string> defaultValue(const std::string& key) const override;
    bool setDefaultValue(const std::string& key, const std::string& value) override;
    bool deleteKey(const std::string& key) override;
};

} // namespace parlex
