#pragma once

#include <map>
#include <string>

// Type names by lower-case extension, asked of the desktop once per extension. Lives as long as the wizard.
class TypesFichiers {
public:
    // Empty for an empty or unknown extension.
    const std::string& Nom(const std::string& extension);

private:
    std::map<std::string, std::string> noms_;
};
