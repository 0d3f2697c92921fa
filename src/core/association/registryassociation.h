#pragma once

#include "core/association/fileassociation.h"

#include <optional>
#include <string>

namespace parlex {

// The few registry operations the association needs, on the keys of the user's
// classes. Keys are written with backslashes ("Parlex\\Shell\\Open\\Command").
class Registry {
public:
    virtual ~Registry() = default;
    // The key's default value; nothing when the key cannot be opened.
    virtual std::optional<std::string> defaultValue(const std::string& key) const = 0;
    // Creates the key and any missing parents and sets its default value.
    virtual bool setDefaultValue(const std::string& key, const std::string& value) = 0;
    // Removes the key with everything below it. False when it could not be removed.
    virtual bool deleteKey(const std::string& key) = 0;
};

// The association the Windows way: ".npc" names the class "Parlex", whose command
// runs the program with the file's path.
class RegistryAssociation : public FileAssociation {
public:
    // `programPath` is the full path of the running program ("C:\\Games\\Parlex.exe").
    RegistryAssociation(Registry& registry, std::string programPath);

    bool isAssociated() const override;
    Result<void> associate() override;
    Result<void> disassociate() override;

    // The command the class runs: the program and "%1", without quotes.
    std::string command() const;

private:
    Registry& registry_;
    std::string exe_; // the program's path with ".exe" as its extension
};

} // namespace parlex
